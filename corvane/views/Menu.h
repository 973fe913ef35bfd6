// Commands to choose one from. Shown by the window's host.
#pragma once

#include "corvane/views/MenuItem.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace corvane::views {

/// Held by std::shared_ptr.
class Menu {
  public:
    explicit Menu(std::string title = {}) : title_(std::move(title)) {}

    const std::string& title() const { return title_; }
    const std::vector<std::shared_ptr<MenuItem>>& items() const { return items_; }
    MenuItem& addItem(std::string title, MenuItem::Action action = {}) {
        return addItem(std::make_shared<MenuItem>(std::move(title), std::move(action)));
    }
    MenuItem& addItem(std::shared_ptr<MenuItem> item) {
        return *items_.emplace_back(std::move(item));
    }
    void addSeparator() { addItem(MenuItem::separator()); }

  private:
    std::string title_;
    std::vector<std::shared_ptr<MenuItem>> items_;
};

}  // namespace corvane::views
