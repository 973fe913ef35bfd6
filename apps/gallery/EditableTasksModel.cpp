#include "apps/gallery/EditableTasksModel.h"

#include <algorithm>
#include <utility>

namespace corvane::gallery {

std::vector<SectionedOverviewModel::Section> EditableTasksModel::sections() const {
    std::vector<Section> all;
    for (std::int64_t section = 0; section < numberOfSections(); ++section) {
        Section& one = all.emplace_back();
        one.title = titleForSection(section);
        for (std::int64_t row = 0; row < numberOfObjectsInSection(section); ++row)
            one.objects.push_back(objectAtIndexPath({section, row}));
    }
    return all;
}

bool EditableTasksModel::canDeleteObjectAtIndexPath(const IndexPath&) const {
    return true;
}

void EditableTasksModel::deleteObjectAtIndexPath(const IndexPath& path) {
    auto all = sections();
    auto& objects = all.at(static_cast<std::size_t>(path.section)).objects;
    objects.erase(objects.begin() + path.item);
    setSections(std::move(all));
    didRemoveObjectsAtIndexPaths({path}, true);
}

bool EditableTasksModel::canMoveObjectAtIndexPath(const IndexPath&) const {
    return true;
}

void EditableTasksModel::moveObjectAtIndexPath(const IndexPath& path, const IndexPath& target) {
    auto all = sections();
    auto& source = all.at(static_cast<std::size_t>(path.section)).objects;
    const EXObject moved = source.at(static_cast<std::size_t>(path.item));
    source.erase(source.begin() + path.item);
    auto& objects = all.at(static_cast<std::size_t>(target.section)).objects;
    objects.insert(objects.begin() + std::min(target.item, std::ssize(objects)), moved);
    setSections(std::move(all));
}

void EditableTasksModel::insert(const Task& task, const IndexPath& path) {
    auto all = sections();
    if (path.section < 0 || path.section >= std::ssize(all)) return;
    auto& objects = all[static_cast<std::size_t>(path.section)].objects;
    const auto row = std::clamp<std::int64_t>(path.item, 0, std::ssize(objects));
    objects.insert(objects.begin() + row, EXObject(task));
    setSections(std::move(all));
    didInsertObjectsAtIndexPaths({{path.section, row}}, true);
}

void EditableTasksModel::append(const Task& task) {
    if (const auto last = numberOfSections() - 1; last >= 0)
        return insert(task, {last, numberOfObjectsInSection(last)});
    setSections({Section{std::nullopt, {EXObject(task)}}});
    didInsertObjectsAtIndexPaths({{0, 0}}, true);
}

std::int64_t EditableTasksModel::taskCount() const {
    std::int64_t count = 0;
    for (std::int64_t section = 0; section < numberOfSections(); ++section)
        count += numberOfObjectsInSection(section);
    return count;
}

void EditableTasksModel::sort(const Before& before) {
    auto all = sections();
    for (Section& section : all)
        std::stable_sort(section.objects.begin(), section.objects.end(),
                         [&](const EXObject& a, const EXObject& b) {
                             return before(*a.as<HGTaskProxy>(), *b.as<HGTaskProxy>());
                         });
    setSections(std::move(all));
}

}  // namespace corvane::gallery
