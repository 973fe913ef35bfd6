// The base of every list that a table shows: sections of objects, addressed by index paths, with
// the state of their loading and a delegate that hears of every change.
#pragma once

#include "corvane/models/EXObject.h"
#include "corvane/models/EXOverviewModelDelegate.h"
#include "corvane/models/EXOverviewModelState.h"
#include "corvane/platform/Error.h"
#include "corvane/platform/IndexPath.h"
#include "corvane/platform/NotificationCenter.h"
#include "corvane/platform/URL.h"
#include "corvane/toolkit/EXValue.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvane {

/// Held by std::shared_ptr; one thread. A model that its delegate drops lives until the operation
/// that told the delegate is over.
///
/// Reloading, preloading or resetting from inside a callback is allowed: the operation that was
/// under way stops where it is, and what is left is what the inner one made. From inside a data
/// operation (loadData, unloadData, handlePreloadedData), where data are half there, the inner one
/// waits until that has returned, and its result is then forgotten in the same way.
///
/// A concrete model overrides the data operations; corvane/testing has a checker for it. What it
/// leaves to the base class answers with none, 0 or false, or does nothing; an object that is moved
/// goes where it was to go, and loading succeeds. Of a path that is not there the models here throw
/// std::out_of_range.
class EXOverviewModel : public std::enable_shared_from_this<EXOverviewModel> {
  public:
    using IndexPath = platform::IndexPath;
    using IndexPaths = std::vector<IndexPath>;
    using Template = std::map<std::string, EXValue, std::less<>>;
    using Confirmation = EXOverviewModelDelegate::Confirmation;

    EXOverviewModel() = default;
    virtual ~EXOverviewModel();
    EXOverviewModel(const EXOverviewModel&) = delete;
    EXOverviewModel& operator=(const EXOverviewModel&) = delete;

    // Data. The base class has none. An object keeps its handle for as long as it is listed, so
    // that whoever asks for it twice can tell that it is the same.

    virtual std::int64_t numberOfSections() const { return 0; }
    virtual std::optional<std::string> titleForSection(std::int64_t section) const;
    virtual std::int64_t numberOfObjectsInSection(std::int64_t section) const;
    virtual EXObject objectAtIndexPath(const IndexPath& path) const;
    virtual std::optional<IndexPath> indexPathOfObjectInSection(const EXObject& object,
                                                                std::int64_t section) const;
    virtual std::optional<platform::URL> uriRepresentationForObjectAtIndexPath(
        const IndexPath& path) const;
    virtual std::optional<std::string> titleForObjectAtIndexPath(const IndexPath& path) const;

    /// The values with which an object that is made here should begin; none when none can be.
    virtual std::optional<Template> templateForNewObjectAtIndexPath(const IndexPath& path) const;

    virtual bool canDeleteObjectAtIndexPath(const IndexPath& path) const;
    virtual void deleteObjectAtIndexPath(const IndexPath& path);
    virtual bool canMoveObjectAtIndexPath(const IndexPath& path) const;
    virtual void moveObjectAtIndexPath(const IndexPath& path, const IndexPath& target);
    /// Where an object that is being moved to the proposed path really goes.
    virtual IndexPath targetIndexPathForMoveFromIndexPath(const IndexPath& path,
                                                          const IndexPath& proposed) const;

    /// Whether the list is that of one object (the tasks of a project), and which.
    virtual bool isDetailOverview() const { return false; }
    virtual EXObject detailOverviewObject() const { return {}; }
    virtual void setDetailOverviewObject(const EXObject&) {}

    // What follows from the data. Linear in the number of objects and sections where the data
    // operations take constant time, but for indexPathOfObject, which asks each section.

    bool isEmpty() const;
    EXObject firstObject() const;  ///< of the first section that has any
    std::optional<IndexPath> indexPathOfObject(const EXObject& object) const;
    IndexPaths indexPathsForAllObjects() const;
    /// In the order of the paths; objects without an identity are left out.
    std::vector<platform::URL> uriRepresentationsForObjectsAtIndexPaths(
        const IndexPaths& paths) const;

    /// From where each object stands in the section to where it belongs by the order of the list.
    /// Objects that are not in the section get no entry, but take up their place.
    std::unordered_map<IndexPath, IndexPath> sortedIndexPathsForSection(
        std::int64_t section, const std::vector<EXObject>& objects) const;

    // Loading.

    EXOverviewModelState state() const { return state_; }
    const std::optional<platform::Error>& error() const { return error_; }  ///< of the last load

    /// The error's own words, else the default description.
    std::optional<std::string> errorMessage() const;
    const std::optional<std::string>& defaultErrorDescription() const;
    void setDefaultErrorDescription(std::optional<std::string> description);

    /// Fetches the data; false for a failure, with its error or without. What stood there before
    /// has been dropped by unloadData.
    virtual bool loadData(std::optional<platform::Error>& error);
    virtual void unloadData() {}
    virtual void handlePreloadedData(const EXObject&) {}

    void reloadData();
    /// Takes data that were fetched elsewhere, of the class that the concrete model says. No data,
    /// or an error, is a failure; the error may then be none.
    void preloadData(const EXObject& data, const std::optional<platform::Error>& error = {});
    void reset();

    /// An active model reloads when the application returns to the foreground.
    bool isActive() const { return active_; }
    void setActive(bool active) { active_ = active; }

    /// For the notifications of EXProcessManager; see EXOverviewModelSubscription.h.
    void handleApplicationDidEnterBackgroundNotification(const platform::Notification&);
    void handleApplicationWillEnterForegroundNotification(const platform::Notification&);

    // Presentation.

    const std::optional<std::string>& title() const { return title_; }
    void setTitle(std::optional<std::string> title);

    std::shared_ptr<EXOverviewModelDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(std::weak_ptr<EXOverviewModelDelegate> delegate);

    // For the model to ask the user something through its delegate; without one nothing happens.

    void showAlertWithTitle(const std::string& title, const std::string& message,
                            const std::string& defaultAction);
    void showConfirmationWithTitle(const std::string& title, const std::string& message,
                                   const std::string& confirmAction,
                                   const std::string& cancelAction,
                                   const Confirmation& confirmation);
    void showConfirmationWithTitle(const std::string& title, const std::string& message,
                                   const std::string& confirmAction,
                                   const std::string& cancelAction,
                                   const std::shared_ptr<views::View>& sender,
                                   const Confirmation& confirmation);

  protected:
    // Around the operations; nothing in the base class.
    virtual void willPreloadData() {}
    virtual void didPreloadData() {}
    virtual void willReloadData() {}
    virtual void didReloadData() {}
    virtual void willReset() {}
    virtual void didReset() {}

    /// Stores the state and tells the delegate, unless the model has it already.
    void transitionToState(EXOverviewModelState state);

    /// Tells the delegate of a change that a data operation has made.
    void didInsertObjectsAtIndexPaths(const IndexPaths& paths, bool userDriven);
    void didRemoveObjectsAtIndexPaths(const IndexPaths& paths, bool userDriven);

  private:
    class Operation;

    /// Keeps the operation for later where the data are being changed.
    bool isChangingData(std::function<void()> operation);
    void transitionToLoadedState();

    std::optional<std::string> title_;
    EXOverviewModelState state_ = EXOverviewModelStateInitial;
    std::optional<platform::Error> error_;
    std::optional<std::string> defaultErrorDescription_;
    std::weak_ptr<EXOverviewModelDelegate> delegate_;
    bool active_ = false;

    std::uint64_t operations_ = 0;  ///< how many have begun; the last one is the one that counts
    bool changingData_ = false;
    std::vector<std::function<void()>> waiting_;
};

}  // namespace corvane
