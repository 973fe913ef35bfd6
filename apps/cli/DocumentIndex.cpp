#include "apps/cli/DocumentIndex.h"

#include <algorithm>

namespace corvane::cli {

namespace {

template <class T>
std::unordered_map<std::string_view, const T*> byURI(const std::vector<T>& records) {
    std::unordered_map<std::string_view, const T*> found;
    found.reserve(records.size());
    for (const T& record : records)
        found.emplace(record.uri.absoluteString(), &record);
    return found;
}

template <class T>
const T* find(const std::unordered_map<std::string_view, const T*>& records,
              const backup::Reference& uri) {
    auto found = records.find(uri.absoluteString());
    return found == records.end() ? nullptr : found->second;
}

}  // namespace

DocumentIndex::DocumentIndex(const BackupDocument& document)
    : contributors_(byURI(document.contributors)),
      categories_(byURI(document.categories)),
      portfolios_(byURI(document.portfolios)),
      projects_(byURI(document.projects)) {
    if (const auto* general = generalProject(document)) {
        projects_.erase(general->uri.absoluteString());
    }
}

const backup::Contributor* DocumentIndex::contributor(const backup::Reference& uri) const {
    return find(contributors_, uri);
}

const backup::Category* DocumentIndex::category(const backup::Reference& uri) const {
    return find(categories_, uri);
}

const backup::Portfolio* DocumentIndex::portfolio(const backup::Reference& uri) const {
    return find(portfolios_, uri);
}

const backup::Project* DocumentIndex::project(const backup::Reference& uri) const {
    return find(projects_, uri);
}

const backup::Category* DocumentIndex::category(
    const std::vector<backup::Context>& contexts) const {
    auto primary = std::find_if(contexts.begin(), contexts.end(), [](const auto& context) {
        return context.primary.value_or(false);
    });
    if (primary == contexts.end()) primary = contexts.begin();
    return primary == contexts.end() ? nullptr : category(primary->category);
}

const backup::Project* generalProject(const BackupDocument& document) {
    auto found = std::find_if(document.projects.begin(), document.projects.end(),
                              [](const auto& project) { return project.general.value_or(false); });
    return found == document.projects.end() ? nullptr : &*found;
}

std::string nameOf(const backup::Contributor& contributor) {
    if (contributor.nameRaw) return *contributor.nameRaw;
    std::string name = contributor.firstNameRaw.value_or("");
    if (contributor.lastName) name += (name.empty() ? "" : " ") + *contributor.lastName;
    return name.empty() ? contributor.organization.value_or("") : name;
}

}  // namespace corvane::cli
