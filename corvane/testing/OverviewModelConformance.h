// Checks whether a concrete overview model keeps what tables and controllers rely on; for the tests
// of applications, with any test framework.
#pragma once

#include "corvane/models/EXOverviewModel.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::testing {

/// Drives the model through its operations and collects what is wrong, a line each. The model must
/// be able to load; what it lists must not change but by loading. It is left reset, with the
/// delegate, title and activity that it had.
///
///     OverviewModelConformance conformance(model);
///     conformance.checkAll();
///     EXPECT_THAT(conformance.findings(), IsEmpty());
class OverviewModelConformance {
  public:
    explicit OverviewModelConformance(std::shared_ptr<EXOverviewModel> model);

    /// Empty for a model without faults.
    const std::vector<std::string>& findings() const { return findings_; }

    /// All of the following but checkFailingReload and checkPreload.
    void checkAll();

    /// What the model has now: counts, objects, their paths, titles and identities, the first
    /// object, sorted paths, and whether the state agrees. Of a large model some objects only.
    void checkData();

    void checkReload();
    /// For a model that was brought into a position in which it cannot load.
    void checkFailingReload();
    void checkReset();
    /// With data of the class that the model takes.
    void checkPreload(const EXObject& data);
    void checkFailingPreload();
    void checkTitle();
    void checkBackgroundAndForeground();

    /// Operations from inside the callbacks of others, and a delegate that goes away.
    void checkCallbacks();

  private:
    using IndexPath = platform::IndexPath;
    using Events = std::vector<std::string>;

    template <class Check>
    void attempt(std::string_view what, Check check);
    bool expect(bool isSo, std::string_view what);
    bool expectEvents(std::string_view during, const Events& events, const Events& expected);
    void expectDropped(std::string_view after);
    void checkCount(std::int64_t section);
    void checkObject(const IndexPath& path);
    void checkIdentities(std::int64_t section);
    void checkStrangers(std::int64_t section);
    void checkSorting(std::int64_t section);
    void checkOperationInside(const std::string& event, bool resets);
    std::string loadedEvent() const;

    std::shared_ptr<EXOverviewModel> model_;
    std::vector<std::string> findings_;
};

}  // namespace corvane::testing
