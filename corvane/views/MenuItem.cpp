#include "corvane/views/MenuItem.h"

namespace corvane::views {

std::shared_ptr<MenuItem> MenuItem::separator() {
    auto item = std::make_shared<MenuItem>(std::string());
    item->separator_ = true;
    return item;
}

bool MenuItem::isValid() const {
    if (separator_ || !enabled_ || (!action_ && !submenu_)) return false;
    const auto validation = validation_;
    return !validation || validation();
}

void MenuItem::perform() {
    const Action action = action_;  // which may set another one
    if (isValid() && action) action(*this);
}

}  // namespace corvane::views
