#include "corvane/models/EXOverviewModel.h"

#include "corvane/platform/AddressTable.h"
#include "corvane/platform/Console.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace corvane {

using platform::Error;
using platform::IndexPath;
using platform::URL;

namespace {

/// Calls the delegate's operation where there are both.
template <class Operation, class... Arguments>
void tell(EXOverviewModel& model, Operation EXOverviewModelDelegate::*operation,
          const Arguments&... arguments) {
    auto alive = model.weak_from_this().lock();
    auto delegate = model.delegate();
    if (!delegate) return;
    // A copy, because the operation may replace itself.
    if (auto call = (*delegate).*operation) call(model, arguments...);
}

}  // namespace

/// A reload, preload or reset under way. It is over when another has begun.
class EXOverviewModel::Operation {
  public:
    explicit Operation(EXOverviewModel& model)
        : model_(model), alive_(model.weak_from_this().lock()), number_(++model.operations_) {}

    /// Whether the operation goes on afterwards.
    template <class Step>
    bool step(Step step) {
        step();
        return number_ == model_.operations_;
    }

    /// The same for a step during which the data are not whole: what is asked for meanwhile waits.
    template <class Step>
    bool changeData(Step change) {
        return step([&] {
            std::vector<std::function<void()>> waiting;
            {
                Change changing(model_);
                change();
                waiting.swap(model_.waiting_);
            }
            for (auto& operation : waiting)
                operation();
        });
    }

  private:
    class Change {
      public:
        explicit Change(EXOverviewModel& model) : model_(model) { model_.changingData_ = true; }
        ~Change() {
            model_.changingData_ = false;
            model_.waiting_.clear();
        }

      private:
        EXOverviewModel& model_;
    };

    EXOverviewModel& model_;
    std::shared_ptr<EXOverviewModel> alive_;
    std::uint64_t number_;
};

EXOverviewModel::~EXOverviewModel() = default;

// Data

std::optional<std::string> EXOverviewModel::titleForSection(std::int64_t) const {
    return std::nullopt;
}

std::int64_t EXOverviewModel::numberOfObjectsInSection(std::int64_t) const {
    return 0;
}

EXObject EXOverviewModel::objectAtIndexPath(const IndexPath&) const {
    return {};
}

std::optional<IndexPath> EXOverviewModel::indexPathOfObjectInSection(const EXObject&,
                                                                     std::int64_t) const {
    return std::nullopt;
}

std::optional<URL> EXOverviewModel::uriRepresentationForObjectAtIndexPath(const IndexPath&) const {
    return std::nullopt;
}

std::optional<std::string> EXOverviewModel::titleForObjectAtIndexPath(const IndexPath&) const {
    return std::nullopt;
}

std::optional<EXOverviewModel::Template> EXOverviewModel::templateForNewObjectAtIndexPath(
    const IndexPath&) const {
    return std::nullopt;
}

bool EXOverviewModel::canDeleteObjectAtIndexPath(const IndexPath&) const {
    return false;
}

void EXOverviewModel::deleteObjectAtIndexPath(const IndexPath&) {}

bool EXOverviewModel::canMoveObjectAtIndexPath(const IndexPath&) const {
    return false;
}

void EXOverviewModel::moveObjectAtIndexPath(const IndexPath&, const IndexPath&) {}

IndexPath EXOverviewModel::targetIndexPathForMoveFromIndexPath(const IndexPath&,
                                                               const IndexPath& proposed) const {
    return proposed;
}

bool EXOverviewModel::loadData(std::optional<Error>&) {
    return true;
}

// What follows from the data

bool EXOverviewModel::isEmpty() const {
    const std::int64_t sections = numberOfSections();
    for (std::int64_t section = 0; section < sections; ++section)
        if (numberOfObjectsInSection(section) > 0) return false;
    return true;
}

EXObject EXOverviewModel::firstObject() const {
    const std::int64_t sections = numberOfSections();
    for (std::int64_t section = 0; section < sections; ++section)
        if (numberOfObjectsInSection(section) > 0) return objectAtIndexPath({section, 0});
    return {};
}

std::optional<IndexPath> EXOverviewModel::indexPathOfObject(const EXObject& object) const {
    const std::int64_t sections = numberOfSections();
    for (std::int64_t section = 0; section < sections; ++section)
        if (auto path = indexPathOfObjectInSection(object, section)) return path;
    return std::nullopt;
}

EXOverviewModel::IndexPaths EXOverviewModel::indexPathsForAllObjects() const {
    IndexPaths paths;
    const std::int64_t sections = numberOfSections();
    std::int64_t count = 0;
    for (std::int64_t section = 0; section < sections; ++section)
        count += std::max<std::int64_t>(numberOfObjectsInSection(section), 0);
    paths.reserve(static_cast<std::size_t>(count));
    for (std::int64_t section = 0; section < sections; ++section) {
        const std::int64_t rows = numberOfObjectsInSection(section);
        for (std::int64_t row = 0; row < rows; ++row)
            paths.push_back({section, row});
    }
    return paths;
}

std::vector<URL> EXOverviewModel::uriRepresentationsForObjectsAtIndexPaths(
    const IndexPaths& paths) const {
    std::vector<URL> uris;
    uris.reserve(paths.size());
    for (const IndexPath& path : paths)
        if (auto uri = uriRepresentationForObjectAtIndexPath(path)) uris.push_back(*std::move(uri));
    return uris;
}

std::unordered_map<IndexPath, IndexPath> EXOverviewModel::sortedIndexPathsForSection(
    std::int64_t section, const std::vector<EXObject>& objects) const {
    // Asking for the path of each object would search the section once for each of them. All walks
    // here are in the order of rows or of the list, because jumping about in memory costs more than
    // anything else.
    platform::AddressTable rowAfterObject;
    const std::int64_t rows = std::max<std::int64_t>(numberOfObjectsInSection(section), 0);
    for (std::int64_t row = 0; row < rows; ++row) {
        const EXObject object = objectAtIndexPath({section, row});
        if (object && rowAfterObject.find(object.identity()) == 0)
            rowAfterObject.add(object.identity(), static_cast<std::uint32_t>(row + 1));
    }
    constexpr std::int64_t kNoPlace = -1;
    std::vector<std::int64_t> placeOfRow(static_cast<std::size_t>(rows), kNoPlace);
    for (std::size_t place = 0; place < objects.size(); ++place) {
        const void* object = objects[place].identity();
        const std::uint32_t rowAfter = object ? rowAfterObject.find(object) : 0;
        if (rowAfter != 0) placeOfRow[rowAfter - 1] = static_cast<std::int64_t>(place);
    }
    std::unordered_map<IndexPath, IndexPath> sorted;
    sorted.reserve(std::min(placeOfRow.size(), objects.size()));
    for (std::int64_t row = 0; row < rows; ++row) {
        const std::int64_t place = placeOfRow[static_cast<std::size_t>(row)];
        if (place != kNoPlace) sorted.emplace(IndexPath{section, row}, IndexPath{section, place});
    }
    return sorted;
}

// Loading

std::optional<std::string> EXOverviewModel::errorMessage() const {
    if (error_ && !error_->message.empty()) return error_->message;
    return defaultErrorDescription_;
}

const std::optional<std::string>& EXOverviewModel::defaultErrorDescription() const {
    return defaultErrorDescription_;
}

void EXOverviewModel::setDefaultErrorDescription(std::optional<std::string> description) {
    defaultErrorDescription_ = std::move(description);
}

void EXOverviewModel::transitionToState(EXOverviewModelState state) {
    if (state == state_) return;
    state_ = state;
    tell(*this, &EXOverviewModelDelegate::overviewModelDidTransitionToState, state);
}

bool EXOverviewModel::isChangingData(std::function<void()> operation) {
    if (changingData_) waiting_.push_back(std::move(operation));
    return changingData_;
}

void EXOverviewModel::transitionToLoadedState() {
    transitionToState(isEmpty() ? EXOverviewModelStateEmpty : EXOverviewModelStateLoaded);
}

void EXOverviewModel::reloadData() {
    if (isChangingData([this] { reloadData(); })) return;
    Operation reload(*this);
    bool isLoaded = false;
    std::optional<Error> error;
    const bool goesOn = reload.step([&] { willReloadData(); }) &&
                        reload.changeData([&] { unloadData(); }) &&
                        reload.step([&] { transitionToState(EXOverviewModelStateLoading); }) &&
                        reload.changeData([&] { isLoaded = loadData(error); });
    if (!goesOn) return;
    if (!isLoaded) {
        error_ = std::move(error);
        return transitionToState(EXOverviewModelStateError);
    }
    error_.reset();
    if (reload.step([&] { transitionToLoadedState(); }) && reload.step([&] { didReloadData(); }))
        tell(*this, &EXOverviewModelDelegate::didReloadDataForOverviewModel);
}

void EXOverviewModel::preloadData(const EXObject& data, const std::optional<Error>& error) {
    if (isChangingData([this, data, error] { preloadData(data, error); })) return;
    Operation preload(*this);
    const EXObject kept = data;  // a callback may drop what the caller handed over
    const std::optional<Error> keptError = error;
    if (!preload.step([&] { willPreloadData(); })) return;
    if (!preload.changeData([&] { unloadData(); })) return;
    if (!kept || keptError) {
        error_ = keptError;
        return transitionToState(EXOverviewModelStateError);
    }
    // The error of an earlier load stays until a reload succeeds: what was brought from elsewhere
    // says nothing about whether the model itself can load.
    if (preload.changeData([&] { handlePreloadedData(kept); }) &&
        preload.step([&] { transitionToLoadedState(); }))
        didPreloadData();
}

void EXOverviewModel::reset() {
    if (isChangingData([this] { reset(); })) return;
    Operation reset(*this);
    if (reset.step([&] { willReset(); }) && reset.changeData([&] { unloadData(); }) &&
        reset.step([&] { transitionToState(EXOverviewModelStateInitial); }) &&
        reset.step([&] { didReset(); }))
        tell(*this, &EXOverviewModelDelegate::didResetOverviewModel);
}

void EXOverviewModel::handleApplicationDidEnterBackgroundNotification(
    const platform::Notification&) {
    platform::currentConsole().writeLine("### BG: RESETTING MODEL");
    reset();
}

void EXOverviewModel::handleApplicationWillEnterForegroundNotification(
    const platform::Notification&) {
    if (!active_) return;
    platform::currentConsole().writeLine(
        fmt::format("### FG: RELOADING MODEL {}", title_.value_or("(null)")));
    reloadData();
}

// Presentation

void EXOverviewModel::setTitle(std::optional<std::string> title) {
    title_ = std::move(title);
    tell(*this, &EXOverviewModelDelegate::didUpdateTitleForOverviewModel);
}

void EXOverviewModel::setDelegate(std::weak_ptr<EXOverviewModelDelegate> delegate) {
    delegate_ = std::move(delegate);
}

void EXOverviewModel::showAlertWithTitle(const std::string& title, const std::string& message,
                                         const std::string& defaultAction) {
    tell(*this, &EXOverviewModelDelegate::overviewModelShowAlertWithTitle, title, message,
         defaultAction);
}

void EXOverviewModel::showConfirmationWithTitle(const std::string& title,
                                                const std::string& message,
                                                const std::string& confirmAction,
                                                const std::string& cancelAction,
                                                const Confirmation& confirmation) {
    tell(*this, &EXOverviewModelDelegate::overviewModelShowConfirmationWithTitle, title, message,
         confirmAction, cancelAction, confirmation);
}

void EXOverviewModel::showConfirmationWithTitle(const std::string& title,
                                                const std::string& message,
                                                const std::string& confirmAction,
                                                const std::string& cancelAction,
                                                const std::shared_ptr<views::View>& sender,
                                                const Confirmation& confirmation) {
    tell(*this, &EXOverviewModelDelegate::overviewModelShowConfirmationWithTitleFromSender, title,
         message, confirmAction, cancelAction, sender, confirmation);
}

void EXOverviewModel::didInsertObjectsAtIndexPaths(const IndexPaths& paths, bool userDriven) {
    tell(*this, &EXOverviewModelDelegate::overviewModelDidInsertObjectsAtIndexPaths, paths,
         userDriven);
}

void EXOverviewModel::didRemoveObjectsAtIndexPaths(const IndexPaths& paths, bool userDriven) {
    tell(*this, &EXOverviewModelDelegate::overviewModelDidRemoveObjectsAtIndexPaths, paths,
         userDriven);
}

}  // namespace corvane
