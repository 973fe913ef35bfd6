#include "corvane/models/SectionedOverviewModel.h"

#include <cstddef>
#include <utility>

namespace corvane {

using platform::IndexPath;

std::int64_t SectionedOverviewModel::numberOfSections() const {
    return std::ssize(sections_);
}

std::optional<std::string> SectionedOverviewModel::titleForSection(std::int64_t section) const {
    return sectionAt(section).title;
}

std::int64_t SectionedOverviewModel::numberOfObjectsInSection(std::int64_t section) const {
    return std::ssize(sectionAt(section).objects);
}

EXObject SectionedOverviewModel::objectAtIndexPath(const IndexPath& path) const {
    return sectionAt(path.section).objects.at(static_cast<std::size_t>(path.item));
}

std::optional<IndexPath> SectionedOverviewModel::indexPathOfObjectInSection(
    const EXObject& object, std::int64_t section) const {
    if (!object || section < 0 || section >= numberOfSections()) return std::nullopt;
    const auto rowAfter = rowsOfSection(static_cast<std::size_t>(section)).find(object.identity());
    if (rowAfter == 0) return std::nullopt;
    return IndexPath::indexPathForRow(std::int64_t{rowAfter} - 1, section);
}

void SectionedOverviewModel::setSections(std::vector<Section> sections) {
    rowsOfSections_.assign(sections.size(), std::nullopt);
    sections_ = std::move(sections);
}

const SectionedOverviewModel::Section& SectionedOverviewModel::sectionAt(
    std::int64_t section) const {
    return sections_.at(static_cast<std::size_t>(section));
}

const platform::AddressTable& SectionedOverviewModel::rowsOfSection(std::size_t section) const {
    auto& rows = rowsOfSections_[section];
    if (rows) return *rows;
    rows.emplace();
    std::uint32_t rowAfter = 0;
    for (const EXObject& object : sections_[section].objects) {
        ++rowAfter;
        if (object && rows->find(object.identity()) == 0) rows->add(object.identity(), rowAfter);
    }
    return *rows;
}

}  // namespace corvane
