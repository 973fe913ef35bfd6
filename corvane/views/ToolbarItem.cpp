#include "corvane/views/ToolbarItem.h"

namespace corvane::views {

void ToolbarItem::setLabel(std::string label) {
    label_ = std::move(label);
    didChange();
}

void ToolbarItem::setToolTip(std::string toolTip) {
    toolTip_ = std::move(toolTip);
    didChange();
}

void ToolbarItem::setImage(platform::ImagePtr image) {
    image_ = std::move(image);
    didChange();
}

void ToolbarItem::setView(std::shared_ptr<View> view) {
    view_ = std::move(view);
    didChange();
}

void ToolbarItem::setEnabled(bool enabled) {
    enabled_ = enabled;
    didChange();
}

}  // namespace corvane::views
