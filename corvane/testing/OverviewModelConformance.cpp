#include "corvane/testing/OverviewModelConformance.h"

#include "corvane/platform/Console.h"
#include "corvane/testing/OverviewModelRecorder.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <exception>
#include <iterator>
#include <unordered_set>
#include <utility>

namespace corvane::testing {

using platform::Error;
using platform::IndexPath;
using platform::URL;

namespace {

/// So that a large model with slow searches is still checked in a moment.
constexpr std::int64_t kObjectsChecked = 500;

std::string shown(const IndexPath& path) {
    return fmt::format("section {}, row {}", path.section, path.item);
}

EXObject stranger() {
    return std::make_shared<int>(0);
}

std::vector<EXObject> objectsOfSection(const EXOverviewModel& model, std::int64_t section) {
    std::vector<EXObject> objects;
    for (std::int64_t row = 0; row < model.numberOfObjectsInSection(section); ++row)
        objects.push_back(model.objectAtIndexPath({section, row}));
    return objects;
}

}  // namespace

OverviewModelConformance::OverviewModelConformance(std::shared_ptr<EXOverviewModel> model)
    : model_(std::move(model)) {}

bool OverviewModelConformance::expect(bool isSo, std::string_view what) {
    if (!isSo) findings_.emplace_back(what);
    return isSo;
}

bool OverviewModelConformance::expectEvents(std::string_view during, const Events& events,
                                            const Events& expected) {
    return expect(events == expected,
                  fmt::format("{}: the delegate hears [{}], not [{}]", during,
                              fmt::join(events, ", "), fmt::join(expected, ", ")));
}

template <class Check>
void OverviewModelConformance::attempt(std::string_view what, Check check) {
    try {
        check();
    } catch (const std::exception& error) {
        expect(false, fmt::format("{}: an operation throws '{}'", what, error.what()));
    }
}

void OverviewModelConformance::expectDropped(std::string_view after) {
    expect(model_->state() == EXOverviewModelStateInitial && model_->isEmpty(),
           fmt::format("{}: the model still has data, or is in state {}", after,
                       static_cast<int>(model_->state())));
}

std::string OverviewModelConformance::loadedEvent() const {
    return model_->isEmpty() ? "state 3" : "state 2";
}

void OverviewModelConformance::checkAll() {
    checkTitle();
    checkReload();
    checkData();
    checkReload();
    checkFailingPreload();
    checkReload();
    checkReset();
    checkBackgroundAndForeground();
    checkCallbacks();
    model_->reset();
}

// Data

void OverviewModelConformance::checkData() {
    attempt("data", [&] {
        const std::int64_t sections = model_->numberOfSections();
        if (!expect(sections >= 0, "the number of sections is negative")) return;
        const std::size_t before = findings_.size();
        for (std::int64_t section = 0; section < sections; ++section)
            checkCount(section);
        if (findings_.size() != before) return;
        const auto paths = model_->indexPathsForAllObjects();
        const std::int64_t stride = std::ssize(paths) / kObjectsChecked + 1;
        for (std::int64_t section = 0; section < sections; ++section) {
            const std::int64_t rows = model_->numberOfObjectsInSection(section);
            for (std::int64_t row = 0; row < rows; row += stride)
                checkObject({section, row});
            checkIdentities(section);
            checkStrangers(section);
            checkSorting(section);
        }
        expect(model_->isEmpty() == paths.empty(), "isEmpty does not agree with the counts");
        const EXObject first = paths.empty() ? EXObject() : model_->objectAtIndexPath(paths[0]);
        expect(model_->firstObject() == first, "firstObject is not the first object");
        const bool isLoaded = model_->state() == EXOverviewModelStateLoaded;
        const bool isEmpty = model_->state() == EXOverviewModelStateEmpty;
        if (isLoaded || isEmpty)
            expect(isEmpty == model_->isEmpty(), "the state does not agree with isEmpty");
    });
}

void OverviewModelConformance::checkCount(std::int64_t section) {
    const std::int64_t rows = model_->numberOfObjectsInSection(section);
    expect(rows >= 0, fmt::format("section {}: the number of objects is negative", section));
    expect(rows == model_->numberOfObjectsInSection(section),
           fmt::format("section {}: the number of objects changes from call to call", section));
}

void OverviewModelConformance::checkObject(const IndexPath& path) {
    const EXObject object = model_->objectAtIndexPath(path);
    if (!expect(bool(object), shown(path) + ": there is no object")) return;
    expect(object == model_->objectAtIndexPath(path),
           shown(path) + ": the object is another one each time");
    expect(model_->indexPathOfObjectInSection(object, path.section) == path,
           shown(path) + ": the object is not found there");
    // An object may be listed in several sections.
    const auto anywhere = model_->indexPathOfObject(object);
    expect(anywhere && *anywhere <= path && model_->objectAtIndexPath(*anywhere) == object,
           shown(path) + ": the object is not found in the first section that has it");
    expect(model_->titleForObjectAtIndexPath(path) == model_->titleForObjectAtIndexPath(path),
           shown(path) + ": the title changes from call to call");
    const IndexPath proposed{path.section, 0};
    if (!model_->canMoveObjectAtIndexPath(path)) return;
    const IndexPath target = model_->targetIndexPathForMoveFromIndexPath(path, proposed);
    expect(target.section >= 0 && target.section < model_->numberOfSections() && target.item >= 0 &&
               target.item <= model_->numberOfObjectsInSection(target.section),
           shown(path) + ": it can be moved to where there is no place");
}

void OverviewModelConformance::checkIdentities(std::int64_t section) {
    EXOverviewModel::IndexPaths paths;
    std::unordered_set<URL> seen;
    std::vector<URL> uris;
    const std::int64_t rows = model_->numberOfObjectsInSection(section);
    for (std::int64_t row = 0; row < rows; ++row) {
        paths.push_back({section, row});
        const auto uri = model_->uriRepresentationForObjectAtIndexPath(paths.back());
        if (!uri) continue;
        uris.push_back(*uri);
        expect(seen.insert(*uri).second,
               shown(paths.back()) + ": an object before it has the same identity");
    }
    expect(model_->uriRepresentationsForObjectsAtIndexPaths(paths) == uris,
           fmt::format("section {}: the identities change from call to call", section));
}

void OverviewModelConformance::checkStrangers(std::int64_t section) {
    expect(!model_->indexPathOfObjectInSection(stranger(), section) &&
               !model_->indexPathOfObjectInSection({}, section),
           fmt::format("section {}: it finds objects that it does not have", section));
}

void OverviewModelConformance::checkSorting(std::int64_t section) {
    std::vector<EXObject> objects = objectsOfSection(*model_, section);
    const std::size_t count = objects.size();
    std::reverse(objects.begin(), objects.end());
    objects.insert(objects.begin(), stranger());
    const auto sorted = model_->sortedIndexPathsForSection(section, objects);
    bool isSound = sorted.size() == count;
    for (const auto& [from, to] : sorted)
        isSound = isSound && from.section == section && to.section == section &&
                  from.item + to.item == static_cast<std::int64_t>(count);
    expect(isSound, fmt::format("section {}: its objects cannot be sorted by path", section));
}

// States

void OverviewModelConformance::checkReload() {
    attempt("reload", [&] {
        OverviewModelRecorder recorder(model_);
        model_->reloadData();
        const bool hasLoaded =
            expectEvents("reload", recorder.events(), {"state 1", loadedEvent(), "reloaded"});
        if (hasLoaded) expect(!model_->error(), "reload: an error is left");
    });
}

void OverviewModelConformance::checkFailingReload() {
    attempt("failing reload", [&] {
        OverviewModelRecorder recorder(model_);
        model_->reloadData();
        expectEvents("failing reload", recorder.events(), {"state 1", "state 4"});
        const auto& error = model_->error();
        const bool hasWords = error && !error->message.empty();
        expect(model_->errorMessage() ==
                   (hasWords ? std::optional(error->message) : model_->defaultErrorDescription()),
               "failing reload: the message is neither the error's nor the default");
    });
}

void OverviewModelConformance::checkReset() {
    attempt("reset", [&] {
        const bool isReset = model_->state() == EXOverviewModelStateInitial;
        OverviewModelRecorder recorder(model_);
        model_->reset();
        expectEvents("reset", recorder.takeEvents(),
                     isReset ? Events{"reset"} : Events{"state 0", "reset"});
        expectDropped("reset");
        model_->reset();
        expectEvents("second reset", recorder.events(), {"reset"});
    });
}

void OverviewModelConformance::checkPreload(const EXObject& data) {
    attempt("preload", [&] {
        model_->reset();
        OverviewModelRecorder recorder(model_);
        model_->preloadData(data);
        expectEvents("preload", recorder.takeEvents(), {loadedEvent()});
        checkData();
        model_->preloadData(data);
        expectEvents("second preload", recorder.events(), {});
    });
}

void OverviewModelConformance::checkFailingPreload() {
    attempt("failing preload", [&] {
        model_->reset();
        OverviewModelRecorder recorder(model_);
        const Error error{"testing", 1, "what should have come did not"};
        model_->preloadData(stranger(), error);
        expectEvents("failing preload", recorder.takeEvents(), {"state 4"});
        expect(model_->errorMessage() == error.message, "failing preload: its error is not kept");
        expect(model_->isEmpty(), "failing preload: there are data");
        model_->preloadData({});
        expectEvents("preload without data", recorder.events(), {});
        expect(!model_->error(), "preload without data: an error is left");
    });
}

void OverviewModelConformance::checkTitle() {
    attempt("title", [&] {
        const auto former = model_->title();
        {
            OverviewModelRecorder recorder(model_);
            model_->setTitle("A title");
            expectEvents("title", recorder.events(), {"title"});
            expect(model_->title() == "A title", "title: it is not kept");
        }
        model_->setTitle(former);
    });
}

void OverviewModelConformance::checkBackgroundAndForeground() {
    attempt("background and foreground", [&] {
        const platform::NotificationUserInfo noInfo;
        const platform::Notification notification{"", nullptr, noInfo};
        const bool formerlyActive = model_->isActive();
        platform::RecordingConsole console;
        const platform::ScopedConsole scope(console);
        OverviewModelRecorder recorder(model_);
        for (const bool active : {false, true}) {
            model_->setActive(active);
            model_->handleApplicationDidEnterBackgroundNotification(notification);
            expectDropped("background");
            recorder.takeEvents();
            model_->handleApplicationWillEnterForegroundNotification(notification);
            expectEvents(active ? "foreground" : "foreground of an inactive model",
                         recorder.takeEvents(),
                         active ? Events{"state 1", loadedEvent(), "reloaded"} : Events{});
        }
        model_->setActive(formerlyActive);
    });
}

// Callbacks

/// Where an operation begins inside another one, what is left is what the inner one makes.
void OverviewModelConformance::checkOperationInside(const std::string& event, bool resets) {
    model_->reloadData();
    const auto paths = model_->indexPathsForAllObjects();
    const std::string during = (resets ? "reset inside '" : "reload inside '") + event + "'";
    OverviewModelRecorder recorder(model_);
    recorder.onNext(event, [&] { resets ? model_->reset() : model_->reloadData(); });
    if (event == "reset")
        model_->reset();
    else
        model_->reloadData();
    const auto& events = recorder.events();
    expect(std::count(events.begin(), events.end(), "reloaded") <= (event == "reloaded" ? 2 : 1),
           during + ": the delegate is told of a reload that was given up");
    if (resets) return expectDropped(during);
    expect(model_->indexPathsForAllObjects() == paths, during + ": the data are not those loaded");
    expect(
        model_->state() == (paths.empty() ? EXOverviewModelStateEmpty : EXOverviewModelStateLoaded),
        during + ": the state is not that of the data");
}

void OverviewModelConformance::checkCallbacks() {
    attempt("callbacks", [&] {
        model_->reloadData();
        const std::string loaded = loadedEvent();
        for (const std::string& event : {std::string("state 1"), loaded, std::string("reloaded")})
            for (const bool resets : {true, false})
                checkOperationInside(event, resets);
        checkOperationInside("reset", false);

        const auto former = model_->delegate();
        auto leaving = std::make_shared<EXOverviewModelDelegate>();
        leaving->overviewModelDidTransitionToState = [&](auto&, auto) { leaving = nullptr; };
        model_->setDelegate(leaving);
        model_->reset();
        model_->reloadData();
        expect(!model_->delegate(), "the model keeps its delegate alive");
        model_->setDelegate(former);
    });
}

}  // namespace corvane::testing
