#include "corvane/bridge/HGSharedRepository.h"

#include "corvane/bridge/HGSharedContainer.h"
#include "corvane/bridge/SharedArchiveClasses.h"
#include "corvane/platform/KeyedArchiver.h"
#include "corvane/platform/KeyedUnarchiver.h"
#include "corvane/vocabulary/EXChoiceListSection.h"
#include "corvane/vocabulary/HGLocalizable.h"

namespace corvane {

namespace {

// Archives hold these names: they must not change.
constexpr std::string_view kGeneralProjectProxyKey = "HGSharedRepositoryGeneralProjectProxy";
constexpr std::string_view kCategoryProxiesKey = "HGSharedRepositoryCategoryProxies";
constexpr std::string_view kCategoryProxyURIsKey = "HGSharedRepositoryCategoryProxyURIs";
constexpr std::string_view kPortfolioProxiesKey = "HGSharedRepositoryPortfolioProxies";
constexpr std::string_view kPortfolioProxyURIsKey = "HGSharedRepositoryPortfolioProxyURIs";
constexpr std::string_view kProjectProxiesKey = "HGSharedRepositoryProjectProxies";
constexpr std::string_view kTopLevelProjectProxyURIsKey =
    "HGSharedRepositoryTopLevelProjectProxyURIs";
constexpr std::string_view kTaskProxiesKey = "HGSharedRepositoryTaskProxies";

constexpr std::int16_t kInboxStatus = 0;

std::shared_ptr<HGSharedRepository>& defaultInstance() {
    static auto instance = std::make_shared<HGSharedRepository>();
    return instance;
}

template <class T>
std::vector<std::shared_ptr<T>> recordsForURIs(
    const std::optional<HGSharedRepository::ByURI<T>>& records,
    const std::optional<HGSharedRepository::URIs>& uris) {
    std::vector<std::shared_ptr<T>> found;
    if (!records || !uris) return found;
    for (const platform::URL& uri : *uris)
        if (auto entry = records->find(uri); entry != records->end())
            found.push_back(entry->second);
    return found;
}

template <class T>
std::shared_ptr<T> recordNamed(const std::optional<HGSharedRepository::ByURI<T>>& records,
                               std::string_view name) {
    if (!records) return nullptr;
    for (const auto& [uri, record] : *records)
        if (record->name() == name) return record;
    return nullptr;
}

std::optional<std::string> copied(std::optional<std::string_view> text) {
    return text ? std::optional<std::string>(*text) : std::nullopt;
}

// Pickers offer records by name, and a name is also what they answer with.
template <class T>
void addChoice(EXChoiceListSection& section, const T& record, std::int64_t iconIndex) {
    section.addItemWithTitle(copied(record.name()), iconIndex, record.name());
}

void addProjects(EXChoiceListSection& section,
                 const std::vector<std::shared_ptr<HGProjectProxy>>& projects) {
    for (const auto& project : projects)
        addChoice(section, *project, project->categoryIconIndex());
}

}  // namespace

HGSharedRepository::HGSharedRepository() : HGSharedRepository({}, {}, {}, {}, {}, {}, {}, {}) {}

HGSharedRepository::HGSharedRepository(std::shared_ptr<HGProjectProxy> generalProjectProxy,
                                       std::optional<ByURI<HGCategoryProxy>> categoryProxies,
                                       std::optional<URIs> categoryProxyURIs,
                                       std::optional<ByURI<HGPortfolioProxy>> portfolioProxies,
                                       std::optional<URIs> portfolioProxyURIs,
                                       std::optional<ByURI<HGProjectProxy>> projectProxies,
                                       std::optional<URIs> topLevelProjectProxyURIs,
                                       std::optional<ByURI<HGTaskProxy>> taskProxies)
    : generalProject_(std::move(generalProjectProxy)),
      categories_(std::move(categoryProxies).value_or(ByURI<HGCategoryProxy>())),
      categoryURIs_(std::move(categoryProxyURIs).value_or(URIs())),
      portfolios_(std::move(portfolioProxies).value_or(ByURI<HGPortfolioProxy>())),
      portfolioURIs_(std::move(portfolioProxyURIs).value_or(URIs())),
      projects_(std::move(projectProxies).value_or(ByURI<HGProjectProxy>())),
      topLevelProjectURIs_(std::move(topLevelProjectProxyURIs).value_or(URIs())),
      tasks_(std::move(taskProxies).value_or(ByURI<HGTaskProxy>())) {}

HGSharedRepository::HGSharedRepository(platform::KeyedUnarchiver& coder) {
    generalProject_ = coder.decodeObject<HGProjectProxy>(kGeneralProjectProxyKey);
    categories_ = coder.decodeURLMap<HGCategoryProxy>(kCategoryProxiesKey);
    categoryURIs_ = coder.decodeList<platform::URL>(kCategoryProxyURIsKey);
    portfolios_ = coder.decodeURLMap<HGPortfolioProxy>(kPortfolioProxiesKey);
    portfolioURIs_ = coder.decodeList<platform::URL>(kPortfolioProxyURIsKey);
    projects_ = coder.decodeURLMap<HGProjectProxy>(kProjectProxiesKey);
    topLevelProjectURIs_ = coder.decodeList<platform::URL>(kTopLevelProjectProxyURIsKey);
    tasks_ = coder.decodeURLMap<HGTaskProxy>(kTaskProxiesKey);
}

void HGSharedRepository::encodeWithCoder(platform::KeyedArchiver& coder) const {
    coder.encodeObject(kGeneralProjectProxyKey, generalProject_);
    coder.encodeMap(kCategoryProxiesKey, categories_);
    coder.encodeList(kCategoryProxyURIsKey, categoryURIs_);
    coder.encodeMap(kPortfolioProxiesKey, portfolios_);
    coder.encodeList(kPortfolioProxyURIsKey, portfolioURIs_);
    coder.encodeMap(kProjectProxiesKey, projects_);
    coder.encodeList(kTopLevelProjectProxyURIsKey, topLevelProjectURIs_);
    coder.encodeMap(kTaskProxiesKey, tasks_);
}

std::shared_ptr<HGSharedRepository> HGSharedRepository::defaultRepository() {
    return defaultInstance();
}

bool HGSharedRepository::restoreDefaultRepositoryFromSharedContainer() {
    auto path = HGSharedContainer::defaultContainer().sharedRepositoryFilePath();
    if (!path) return false;
    auto restored = platform::KeyedUnarchiver::unarchiveFile(*path, sharedArchiveClasses())
                        .objectAs<HGSharedRepository>();
    if (!restored) return false;
    defaultInstance() = std::move(restored);
    return true;
}

bool HGSharedRepository::saveInSharedContainer() const {
    auto path = HGSharedContainer::defaultContainer().sharedRepositoryFilePath();
    return path && !platform::KeyedArchiver::archiveToFile(*this, *path);
}

std::shared_ptr<const EXChoiceList> HGSharedRepository::allCategoryProxiesChoiceList() const {
    if (!categoryChoices_) categoryChoices_ = createAllCategoryProxiesChoiceList();
    return categoryChoices_;
}

std::shared_ptr<const EXChoiceList> HGSharedRepository::allProjectProxiesChoiceList() const {
    if (!projectChoices_) projectChoices_ = createAllProjectProxiesChoiceList();
    return projectChoices_;
}

std::shared_ptr<EXChoiceList> HGSharedRepository::createAllCategoryProxiesChoiceList() const {
    auto list = std::make_shared<EXChoiceList>();
    auto none = std::make_shared<EXChoiceListSection>();
    none->addItemWithTitle(HGLocalizable::localize("SCategoryNone"), nullptr);
    list->addSection(none);

    auto categories = std::make_shared<EXChoiceListSection>();
    for (const auto& category : recordsForURIs(categories_, categoryURIs_))
        addChoice(*categories, *category, category->iconIndex());
    list->addSection(categories);
    return list;
}

std::shared_ptr<EXChoiceList> HGSharedRepository::createAllProjectProxiesChoiceList() const {
    auto list = std::make_shared<EXChoiceList>();
    // To choose no project is to choose the general one.
    auto none = std::make_shared<EXChoiceListSection>();
    none->addItemWithTitle(HGLocalizable::localize("SProjectNone"),
                           generalProject_ ? EXValue(generalProject_->name()) : EXValue());
    list->addSection(none);

    for (const auto& portfolio : recordsForURIs(portfolios_, portfolioURIs_)) {
        auto section = std::make_shared<EXChoiceListSection>(copied(portfolio->name()));
        addProjects(*section, recordsForURIs(projects_, portfolio->projectProxyURIs()));
        list->addSection(section);
    }

    auto topLevel = std::make_shared<EXChoiceListSection>();
    addProjects(*topLevel, recordsForURIs(projects_, topLevelProjectURIs_));
    list->addSection(topLevel);
    return list;
}

std::vector<std::shared_ptr<HGTaskProxy>> HGSharedRepository::taskProxiesForURIRepresentations(
    const URIs& uris) const {
    return recordsForURIs<HGTaskProxy>(tasks_, uris);
}

std::vector<std::shared_ptr<HGProjectProxy>>
HGSharedRepository::projectProxiesForURIRepresentations(const URIs& uris) const {
    return recordsForURIs<HGProjectProxy>(projects_, uris);
}

std::shared_ptr<HGCategoryProxy> HGSharedRepository::categoryProxyNamed(
    std::string_view name) const {
    return recordNamed(categories_, name);
}

std::shared_ptr<HGProjectProxy> HGSharedRepository::projectProxyNamed(std::string_view name) const {
    return recordNamed(projects_, name);
}

std::shared_ptr<HGTaskProxy> HGSharedRepository::createTaskProxyForInsertion() const {
    auto task = std::make_shared<HGTaskProxy>();
    task->setStatus(kInboxStatus);
    task->setProjectName(generalProject_ ? generalProject_->name() : std::nullopt);
    return task;
}

}  // namespace corvane
