#include "corvane/models/EXOverviewModel.h"

#include "corvane/models/EXOverviewModelSubscription.h"
#include "corvane/models/SectionedOverviewModel.h"
#include "corvane/platform/Console.h"
#include "corvane/testing/OverviewModelConformance.h"
#include "corvane/testing/OverviewModelRecorder.h"
#include "corvane/toolkit/EXProcessManager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane::tests {
using namespace platform;
using corvane::testing::OverviewModelConformance;
using corvane::testing::OverviewModelRecorder;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;

using Texts = std::vector<std::vector<std::string>>;

/// Lists texts, and can be broken in one way after another.
class TextsModel : public SectionedOverviewModel {
  public:
    explicit TextsModel(Texts listed) : texts(std::move(listed)) {}

    bool loadData(std::optional<Error>& error) override {
        if (failure) return error = *failure, false;
        if (fault == "keeps data") return list(2), true;
        if (duringLoad) duringLoad();
        return list(1), true;
    }
    void unloadData() override {
        if (fault != "keeps data") setSections({});
    }
    void handlePreloadedData(const EXObject& data) override {
        texts = *data.as<Texts>();
        list(1);
    }
    std::optional<IndexPath> indexPathOfObjectInSection(const EXObject& object,
                                                        std::int64_t section) const override {
        auto path = SectionedOverviewModel::indexPathOfObjectInSection(object, section);
        if (fault == "finds anything") return IndexPath{section, 0};
        if (fault == "finds the next" && path) ++path->item;
        return path;
    }
    EXObject objectAtIndexPath(const IndexPath& path) const override {
        auto object = SectionedOverviewModel::objectAtIndexPath(path);
        if (fault == "new handles") return std::make_shared<int>();
        return fault == "no objects" ? EXObject() : object;
    }
    std::int64_t numberOfObjectsInSection(std::int64_t section) const override {
        auto count = SectionedOverviewModel::numberOfObjectsInSection(section);
        return fault == "unsteady counts" ? calls++ : fault == "negative counts" ? -1 : count;
    }
    std::optional<URL> uriRepresentationForObjectAtIndexPath(const IndexPath&) const override {
        return fault == "one identity" ? std::optional(URL("t:1")) : std::nullopt;
    }
    bool canMoveObjectAtIndexPath(const IndexPath&) const override { return true; }
    IndexPath targetIndexPathForMoveFromIndexPath(const IndexPath& path,
                                                  const IndexPath& proposed) const override {
        return fault == "moves away" ? IndexPath{path.section, 99} : proposed;
    }
    void willReloadData() override {
        if (fault == "says too much") transitionToState(EXOverviewModelStateError);
    }
    void willReset() override {
        if (fault == "resets twice") didRemoveObjectsAtIndexPaths({}, false);
    }

    Texts texts;
    std::optional<Error> failure;
    std::function<void()> duringLoad;
    std::string fault;
    mutable std::int64_t calls = 0;

  private:
    void list(int times) {
        std::vector<Section> sections;
        for (const auto& lines : texts) {
            auto& section = sections.emplace_back();
            for (int time = 0; time < times; ++time)
                for (const auto& line : lines)
                    section.objects.push_back(std::make_shared<const std::string>(line));
        }
        setSections(std::move(sections));
    }
};

const Texts kTexts{{}, {"a", "b", "c"}, {"d"}};

TEST(EXOverviewModel, ConformsWhetherItHasDataOrNot) {
    for (const auto& model : std::vector<std::shared_ptr<EXOverviewModel>>{
             std::make_shared<EXOverviewModel>(), std::make_shared<TextsModel>(kTexts),
             std::make_shared<TextsModel>(Texts(3))}) {
        OverviewModelConformance conformance(model);
        conformance.checkAll();
        conformance.checkPreload(std::make_shared<Texts>(kTexts));
        EXPECT_THAT(conformance.findings(), IsEmpty());
    }
}

TEST(OverviewModelConformance, FindsEveryFault) {
    const std::pair<const char*, const char*> faults[] = {
        {"keeps data", "reset: the model still has data"},
        {"finds anything", "section 0: it finds objects that it does not have"},
        {"finds the next", "section 1, row 0: the object is not found there"},
        {"new handles", "section 1, row 2: the object is another one each time"},
        {"no objects", "section 2, row 0: there is no object"},
        {"unsteady counts", "section 0: the number of objects changes"},
        {"negative counts", "section 0: the number of objects is negative"},
        {"one identity", "section 1, row 1: an object before it has the same identity"},
        {"moves away", "section 2, row 0: it can be moved to where there is no place"},
        {"says too much", "[state 4, state 1, state 2, reloaded], not [state 1, state 2"},
        {"resets twice", "reset: the delegate hears [removed, state 0, reset], not"}};
    for (const auto& [fault, finding] : faults) {
        auto model = std::make_shared<TextsModel>(kTexts);
        model->fault = fault;
        OverviewModelConformance conformance(model);
        conformance.checkAll();
        EXPECT_THAT(conformance.findings(), Contains(HasSubstr(finding))) << fault;
    }
    auto model = std::make_shared<TextsModel>(kTexts);
    OverviewModelConformance conformance(model);
    conformance.checkFailingReload();
    model->failure = Error{};
    conformance.checkReload();
    conformance.checkPreload({});
    EXPECT_THAT(conformance.findings(),
                ElementsAre(HasSubstr("[state 1, state 2, reloaded], not [state 1, state 4]"),
                            HasSubstr("reload: the delegate hears [state 1, state 4], not"),
                            HasSubstr("preload: the delegate hears [state 4], not [state 3]")));
}

TEST(EXOverviewModel, SortsByPathsAndFindsWhatItHas) {
    auto model = std::make_shared<TextsModel>(kTexts);
    model->reloadData();
    const EXObject a = model->firstObject(), b = model->objectAtIndexPath({1, 1});
    EXPECT_EQ(*a.as<const std::string>(), "a");
    EXPECT_FALSE(a.as<int>());
    EXPECT_EQ(model->indexPathOfObject(b), (IndexPath{1, 1}));
    EXPECT_THAT(model->indexPathsForAllObjects(),
                ElementsAre(IndexPath{1, 0}, IndexPath{1, 1}, IndexPath{1, 2}, IndexPath{2, 0}));
    EXPECT_THAT(model->sortedIndexPathsForSection(1, {b, std::make_shared<int>(), a}),
                UnorderedElementsAre(Pair(IndexPath{1, 1}, IndexPath{1, 0}),
                                     Pair(IndexPath{1, 0}, IndexPath{1, 2})));
    EXPECT_THAT(model->sortedIndexPathsForSection(2, {a, b}), IsEmpty());
    EXPECT_THROW(model->objectAtIndexPath({0, 0}), std::out_of_range);
}

TEST(EXOverviewModel, KeepsTheErrorUntilAReloadSucceeds) {
    auto model = std::make_shared<TextsModel>(kTexts);
    model->setDefaultErrorDescription("It could not be loaded");
    OverviewModelConformance conformance(model);
    for (const auto& [message, shown] : std::vector<std::pair<std::string, std::string>>{
             {"", "It could not be loaded"}, {"the disk is gone", "the disk is gone"}}) {
        model->failure = Error{"posix", 5, message};
        conformance.checkFailingReload();
        EXPECT_EQ(model->errorMessage(), shown);
    }
    model->preloadData(std::make_shared<Texts>(kTexts));
    EXPECT_TRUE(model->state() == EXOverviewModelStateLoaded && model->error());
    model->failure = {};
    model->reloadData();
    EXPECT_FALSE(model->error());
    EXPECT_THAT(conformance.findings(), IsEmpty());
}

TEST(EXOverviewModel, FinishesLoadingBeforeItTakesAnotherOperation) {
    const struct {
        std::function<void(TextsModel&)> operation;
        EXOverviewModelState state;
        std::size_t objects;
        std::vector<std::string> events;
    } cases[] = {
        {[](auto& m) { m.reset(); },
         EXOverviewModelStateInitial,
         0,
         {"state 1", "state 0", "reset"}},
        {[](auto& m) { m.reloadData(); },
         EXOverviewModelStateLoaded,
         4,
         {"state 1", "state 2", "reloaded"}},
        {[](auto& m) { m.preloadData(std::make_shared<Texts>(Texts{{"x"}})); },
         EXOverviewModelStateLoaded,
         1,
         {"state 1", "state 2"}},
        {[](auto& m) { m.preloadData({}); }, EXOverviewModelStateError, 0, {"state 1", "state 4"}},
        {[](auto& m) { m.preloadData({}), m.reset(), m.reloadData(); },
         EXOverviewModelStateLoaded,
         4,
         {"state 1", "state 4", "state 0", "reset", "state 1", "state 2", "reloaded"}},
    };
    for (const auto& [operation, state, objects, events] : cases) {
        auto model = std::make_shared<TextsModel>(kTexts);
        OverviewModelRecorder recorder(model);
        model->duringLoad = [&] {
            std::exchange(model->duringLoad, nullptr);
            operation(*model);
            EXPECT_EQ(model->state(), EXOverviewModelStateLoading);
        };
        model->reloadData();
        EXPECT_EQ(recorder.events(), events);
        EXPECT_EQ(model->state(), state);
        EXPECT_EQ(model->indexPathsForAllObjects().size(), objects);
    }
    auto model = std::make_shared<TextsModel>(kTexts);
    model->duringLoad = [&] { model->reset(), throw std::runtime_error("no"); };
    EXPECT_THROW(model->reloadData(), std::runtime_error);
    model->duringLoad = nullptr;
    model->reloadData();
    EXPECT_EQ(model->state(), EXOverviewModelStateLoaded);
}

TEST(EXOverviewModel, OutlivesADelegateThatDropsIt) {
    auto delegate = std::make_shared<EXOverviewModelDelegate>();
    auto model = std::make_shared<TextsModel>(kTexts);
    const std::weak_ptr<EXOverviewModel> alive = model;
    int calls = 0;
    delegate->overviewModelDidTransitionToState = [&](auto&, auto) {
        model = nullptr;
        delegate->overviewModelDidTransitionToState = [&](auto&, auto) {
            calls += alive.expired() ? 100 : 1;
        };
    };
    model->setDelegate(delegate);
    model->reloadData();
    EXPECT_TRUE(calls == 1 && alive.expired());
}

TEST(EXOverviewModel, ForwardsWhatItAsks) {
    auto delegate = std::make_shared<EXOverviewModelDelegate>();
    auto model = std::make_shared<EXOverviewModel>();
    model->showAlertWithTitle("unheard", "", "");
    model->setDelegate(delegate);
    model->showConfirmationWithTitle("unheard", "", "", "", nullptr);
    std::string told;
    int confirmed = 0;
    const std::shared_ptr<views::View> sender(nullptr);
    delegate->overviewModelShowAlertWithTitle = [&](auto&, auto& t, auto& m, auto& a) {
        told += t + m + a;
    };
    delegate->overviewModelShowConfirmationWithTitle = [&](auto&, auto& t, auto& m, auto& yes,
                                                           auto& no, auto& confirmation) {
        told += t + m + yes + no;
        confirmation();
    };
    delegate->overviewModelShowConfirmationWithTitleFromSender =
        [&](auto&, auto& t, auto& m, auto& yes, auto& no, auto& from, auto& confirmation) {
            told += t + m + yes + no + (from == sender ? "s" : "");
            confirmation();
        };
    model->showAlertWithTitle("1", "2", "3");
    model->showConfirmationWithTitle("4", "5", "6", "7", [&] { ++confirmed; });
    model->showConfirmationWithTitle("8", "9", "A", "B", sender, [&] { ++confirmed; });
    EXPECT_EQ(told, "123456789ABs");
    EXPECT_EQ(confirmed, 2);
}

TEST(EXOverviewModelSubscription, FollowsTheApplicationForAsLongAsBothLive) {
    RecordingConsole console;
    const ScopedConsole scope(console);
    auto model = std::make_shared<TextsModel>(kTexts);
    model->setTitle("Errands");
    auto& manager = EXProcessManager::defaultManager();
    auto subscription = std::make_optional<EXOverviewModelSubscription>(model);
    for (const bool active : {false, true}) {
        model->setActive(active);
        model->reloadData();
        manager.sendApplicationDidEnterBackgroundNotification();
        EXPECT_EQ(model->state(), EXOverviewModelStateInitial);
        manager.sendApplicationWillEnterForegroundNotification();
        EXPECT_EQ(model->isEmpty(), !active);
    }
    subscription.reset();
    manager.sendApplicationDidEnterBackgroundNotification();
    EXPECT_FALSE(model->isEmpty());
    const EXOverviewModelSubscription forGoneModel(std::make_shared<TextsModel>(kTexts));
    manager.sendApplicationDidEnterBackgroundNotification();
    EXPECT_THAT(console.lines(), ElementsAre("### BG: RESETTING MODEL", "### BG: RESETTING MODEL",
                                             "### FG: RELOADING MODEL Errands"));
}

}  // namespace corvane::tests
