// Runs long work in small steps on the main run loop, so that the window stays alive, and shows how
// far it is. The main thread.
#pragma once

#include "corvane/controls/CVMacProgressView.h"
#include "corvane/toolkit/EXProcessManager.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace corvane {

/// While the work runs, an activity keeps the system from ending the process. The activity ends
/// with the work in every case: done, cancelled, a step that throws, or this object's end. Made by
/// std::make_shared; whoever lets go of it cancels the work without a notice.
///
///     auto progress = std::make_shared<CVMacActivityProgress>(view);
///     progress->didEnd = [](bool cancelled) { … };
///     progress->begin("Exporting", [&] { return exporter.writeNextRecord(); });
class CVMacActivityProgress final : public std::enable_shared_from_this<CVMacActivityProgress> {
  public:
    /// Does a little, a few milliseconds' worth, and answers how much is done by then: 1 when there
    /// is nothing left, none where that is not known.
    using Step = std::function<std::optional<double>()>;

    /// The view may be null. Its didCancel is this object's matter while work is running.
    explicit CVMacActivityProgress(std::shared_ptr<CVMacProgressView> view);
    ~CVMacActivityProgress();
    CVMacActivityProgress(const CVMacActivityProgress&) = delete;
    CVMacActivityProgress& operator=(const CVMacActivityProgress&) = delete;

    const std::shared_ptr<CVMacProgressView>& view() const { return view_; }

    /// The reason is what the view shows and what the system is told. The first step comes in the
    /// next turn. False where other work is running, or without a step.
    bool begin(const std::string& reason, Step step);
    bool isRunning() const { return activity_ != nullptr; }
    /// No step follows. Nothing where no work is running.
    void cancel();

    /// Cancelled also means that a step threw; the run loop reports what it was.
    std::function<void(bool cancelled)> didEnd;

  private:
    void schedule();
    void runStep();
    void end(bool cancelled);

    std::shared_ptr<CVMacProgressView> view_;
    EXProcessManager::Activity activity_;  ///< null while nothing runs
    Step step_;
    bool inStep_ = false;
    bool cancelRequested_ = false;
};

}  // namespace corvane
