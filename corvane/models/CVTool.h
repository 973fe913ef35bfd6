// An entry of the source list, with the screen that it leads to. One thread, the window's.
#pragma once

#include "corvane/models/EXObject.h"
#include "corvane/platform/Image.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace corvane {

class CVOverview;
class CVOverviewController;

/// Held by a shared pointer. Its identifier is that of no other tool.
class CVTool {
  public:
    CVTool(std::string identifier, std::string label)
        : identifier_(std::move(identifier)), label_(std::move(label)) {}
    CVTool(const CVTool&) = delete;
    CVTool& operator=(const CVTool&) = delete;

    const std::string& identifier() const { return identifier_; }

    const std::string& label() const { return label_; }
    void setLabel(std::string label) { label_ = std::move(label); }

    const platform::ImagePtr& icon() const { return icon_; }
    void setIcon(platform::ImagePtr icon) { icon_ = std::move(icon); }
    const platform::ImagePtr& alternateIcon() const { return alternateIcon_; }
    void setAlternateIcon(platform::ImagePtr icon) { alternateIcon_ = std::move(icon); }

    /// The controller that shows the tool; null for none, as with the following two.
    const std::shared_ptr<CVOverviewController>& overviewController() const {
        return overviewController_;
    }
    void setOverviewController(std::shared_ptr<CVOverviewController> controller) {
        overviewController_ = std::move(controller);
    }
    const std::shared_ptr<CVOverview>& overview() const { return overview_; }
    void setOverview(std::shared_ptr<CVOverview> overview) { overview_ = std::move(overview); }
    /// Whatever the source list keeps with the tool.
    const EXObject& navigationItem() const { return navigationItem_; }
    void setNavigationItem(EXObject item) { navigationItem_ = std::move(item); }

    bool isVisible() const { return visible_; }
    void setVisible(bool visible) { visible_ = visible; }

    /// Under which the visibility map of the tool manager has the tool; none keeps it out.
    const std::optional<std::string>& userDefaultsKey() const { return userDefaultsKey_; }
    void setUserDefaultsKey(std::optional<std::string> key) { userDefaultsKey_ = std::move(key); }

  private:
    const std::string identifier_;
    std::string label_;
    platform::ImagePtr icon_;
    platform::ImagePtr alternateIcon_;
    std::shared_ptr<CVOverviewController> overviewController_;
    std::shared_ptr<CVOverview> overview_;
    EXObject navigationItem_;
    bool visible_ = true;
    std::optional<std::string> userDefaultsKey_;
};

}  // namespace corvane
