#include "apps/cli/RecordsByName.h"

#include "corvane/formats/HGEntityNames.h"
#include "corvane/vocabulary/HGColorNameProvider.h"
#include "corvane/vocabulary/HGIndicatorNameProvider.h"

#include "apps/cli/DocumentIndex.h"
#include "apps/cli/PercentText.h"
#include "apps/cli/TextHash.h"
#include "apps/cli/TypedWords.h"

#include <fmt/format.h>

#include <algorithm>
#include <type_traits>

namespace corvane::cli {

namespace {

using backup::URL;

/// "a" of "a/b"; empty where the project belongs to no portfolio.
std::string_view portfolioNameOf(std::string_view project) {
    auto slash = project.find('/');
    bool divides = slash != project.npos && slash > 0 && slash + 1 < project.size();
    return divides ? project.substr(0, slash) : std::string_view();
}

std::string nameOfRecord(const backup::Contributor& contributor) {
    return nameOf(contributor);
}
std::string nameOfRecord(const auto& record) {
    return record.nameRaw.value_or("");
}

bool isGeneral(const backup::Record&) {
    return false;
}
bool isGeneral(const backup::Project& project) {
    return project.general.value_or(false);
}

}  // namespace

RecordsByName::RecordsByName(BackupDocument& document) : document_(document) {
    learn(document.projects, projects_);
    learn(document.categories, categories_);
    learn(document.portfolios, portfolios_);
    learn(document.contributors, contributors_);
    for (const backup::Task& task : document.tasks)
        uris_.insert(task.uri);
}

template <class T>
void RecordsByName::learn(const std::vector<T>& records, ByName& names) {
    for (std::size_t i = 0; i < records.size(); ++i) {
        uris_.insert(records[i].uri);
        if (!isGeneral(records[i])) names.emplace(nameOfRecord(records[i]), i);
    }
}

template <class T>
std::pair<T&, bool> RecordsByName::findOrMake(std::vector<T>& records, ByName& names,
                                              std::string_view kind, std::string_view name) {
    const auto [entry, isNew] = names.emplace(name, records.size());
    if (!isNew) return {records[entry->second], false};
    T& record = records.emplace_back();
    const std::string text = fmt::format("x-corvane-todo://{}/{}", kind, percentEncoded(name));
    record.uri = URL(text);
    // Another record may have been made under the name, and been called otherwise since.
    for (int number = 2; !uris_.insert(record.uri).second; ++number)
        record.uri = URL(fmt::format("{}-{}", text, number));
    record.nameRaw = std::string(name);
    return {record, true};
}

std::pair<backup::Project&, bool> RecordsByName::project(std::string_view name) {
    auto result = findOrMake(document_.projects, projects_, "project", name);
    const std::string_view portfolioName = portfolioNameOf(name);
    if (result.second && !portfolioName.empty()) {
        result.first.portfolio = portfolio(portfolioName).first.uri;
    }
    return result;
}

std::pair<backup::Category&, bool> RecordsByName::category(std::string_view name) {
    auto result = findOrMake(document_.categories, categories_, "category", name);
    if (result.second) {
        result.first.colorRaw = colorOfCategory(name);
        result.first.indicatorRaw = indicatorOfCategory(name);
    }
    return result;
}

std::pair<backup::Portfolio&, bool> RecordsByName::portfolio(std::string_view name) {
    return findOrMake(document_.portfolios, portfolios_, "portfolio", name);
}

std::pair<backup::Contributor&, bool> RecordsByName::contributor(std::string_view name) {
    return findOrMake(document_.contributors, contributors_, "contributor", name);
}

void RecordsByName::add(const backup::Task& task) {
    uris_.insert(task.uri);
    document_.tasks.push_back(task);
}

std::int16_t colorOfCategory(std::string_view name) {
    const auto count = HGColorNameProvider::allColorNames().size();
    return static_cast<std::int16_t>(stableHash(name) % count);
}

std::int16_t indicatorOfCategory(std::string_view name) {
    const auto& names = HGIndicatorNameProvider::allCategoryIndicatorNames();
    auto found = std::find_if(names.begin() + 1, names.end(),
                              [&](const auto& known) { return equalIgnoringCase(known, name); });
    return found == names.end() ? std::int16_t{0}
                                : static_cast<std::int16_t>(found - names.begin());
}

backup::Project newGeneralProject() {
    backup::Project project;
    project.uri = URL("x-corvane-todo://general-project");
    project.nameRaw = std::string(HGProjectNameGeneral);
    project.general = true;
    return project;
}

}  // namespace corvane::cli
