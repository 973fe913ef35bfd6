// A companion's read-only picture of the user's projects, categories, portfolios and tasks.
#pragma once

#include "corvane/bridge/HGCategoryProxy.h"
#include "corvane/bridge/HGPortfolioProxy.h"
#include "corvane/bridge/HGProjectProxy.h"
#include "corvane/bridge/HGTaskProxy.h"
#include "corvane/platform/Archivable.h"
#include "corvane/platform/URL.h"
#include "corvane/vocabulary/EXChoiceList.h"

#include <map>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace corvane {

/// Every record by its URI, and the order in which the application shows them. The application
/// builds one and saves it in the shared container; companions restore it. It is replaced whole and
/// never edited. URIs that lead nowhere are passed over by every operation.
///
/// For one thread at a time: restoring replaces the default instance without a lock, and the two
/// choice lists are built on first use. Only the first defaultRepository() may race.
class HGSharedRepository final : public platform::Archivable {
  public:
    using URIs = std::vector<platform::URL>;
    template <class T>
    using ByURI = std::map<platform::URL, std::shared_ptr<T>>;

    static constexpr std::string_view kArchiveClassName = "HGSharedRepository";
    static constexpr bool supportsSecureCoding = true;

    /// An empty repository without a general project.
    HGSharedRepository();

    /// `generalProjectProxy` is the project of tasks that have none of their own; it may be null.
    /// Absent maps and lists become empty ones.
    HGSharedRepository(std::shared_ptr<HGProjectProxy> generalProjectProxy,
                       std::optional<ByURI<HGCategoryProxy>> categoryProxies,
                       std::optional<URIs> categoryProxyURIs,
                       std::optional<ByURI<HGPortfolioProxy>> portfolioProxies,
                       std::optional<URIs> portfolioProxyURIs,
                       std::optional<ByURI<HGProjectProxy>> projectProxies,
                       std::optional<URIs> topLevelProjectProxyURIs,
                       std::optional<ByURI<HGTaskProxy>> taskProxies);

    /// Missing keys read as absent, not as empty.
    explicit HGSharedRepository(platform::KeyedUnarchiver& coder);
    void encodeWithCoder(platform::KeyedArchiver& coder) const override;
    std::string_view archiveClassName() const override { return kArchiveClassName; }

    HGSharedRepository(const HGSharedRepository&) = delete;
    HGSharedRepository& operator=(const HGSharedRepository&) = delete;

    /// The process's repository: empty until one is restored; never reads the disk by itself.
    static std::shared_ptr<HGSharedRepository> defaultRepository();

    /// Makes the container's repository the default one. False when the file is missing or holds
    /// no repository; the previous default then stays.
    static bool restoreDefaultRepositoryFromSharedContainer();

    /// Replaces the container's file whole; false when it cannot be written.
    bool saveInSharedContainer() const;

    const std::shared_ptr<HGProjectProxy>& generalProjectProxy() const { return generalProject_; }
    const std::optional<ByURI<HGCategoryProxy>>& categoryProxies() const { return categories_; }
    const std::optional<URIs>& categoryProxyURIs() const { return categoryURIs_; }
    const std::optional<ByURI<HGPortfolioProxy>>& portfolioProxies() const { return portfolios_; }
    const std::optional<URIs>& portfolioProxyURIs() const { return portfolioURIs_; }
    const std::optional<ByURI<HGProjectProxy>>& projectProxies() const { return projects_; }

    /// The projects outside portfolios.
    const std::optional<URIs>& topLevelProjectProxyURIs() const { return topLevelProjectURIs_; }
    const std::optional<ByURI<HGTaskProxy>>& taskProxies() const { return tasks_; }

    /// For pickers. Two untitled sections: "none" (no value), then the categories; values are
    /// names.
    std::shared_ptr<const EXChoiceList> allCategoryProxiesChoiceList() const;

    /// "None" (the general project's name as value), then a titled section a portfolio, then an
    /// untitled one with the projects outside portfolios; values are names.
    std::shared_ptr<const EXChoiceList> allProjectProxiesChoiceList() const;

    /// The records under the URIs, in the order of the argument, repetitions included.
    std::vector<std::shared_ptr<HGTaskProxy>> taskProxiesForURIRepresentations(
        const URIs& uris) const;
    std::vector<std::shared_ptr<HGProjectProxy>> projectProxiesForURIRepresentations(
        const URIs& uris) const;

    /// The record with exactly this name; of several, the one whose URI comes first. Null where
    /// none has it.
    std::shared_ptr<HGCategoryProxy> categoryProxyNamed(std::string_view name) const;
    std::shared_ptr<HGProjectProxy> projectProxyNamed(std::string_view name) const;

    /// A blank task in the inbox of the general project, to be filled and queued for insertion.
    std::shared_ptr<HGTaskProxy> createTaskProxyForInsertion() const;

  private:
    std::shared_ptr<EXChoiceList> createAllCategoryProxiesChoiceList() const;
    std::shared_ptr<EXChoiceList> createAllProjectProxiesChoiceList() const;

    std::shared_ptr<HGProjectProxy> generalProject_;
    std::optional<ByURI<HGCategoryProxy>> categories_;
    std::optional<URIs> categoryURIs_;
    std::optional<ByURI<HGPortfolioProxy>> portfolios_;
    std::optional<URIs> portfolioURIs_;
    std::optional<ByURI<HGProjectProxy>> projects_;
    std::optional<URIs> topLevelProjectURIs_;
    std::optional<ByURI<HGTaskProxy>> tasks_;

    mutable std::shared_ptr<EXChoiceList> categoryChoices_;  // built when first asked for
    mutable std::shared_ptr<EXChoiceList> projectChoices_;
};

}  // namespace corvane
