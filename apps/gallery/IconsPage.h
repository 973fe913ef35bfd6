// Every image and color of the application, a sheet at a time. One thread, the window's.
#pragma once

#include "apps/gallery/Stack.h"

#include <string>

namespace corvane::gallery {

class IconSheetView;
class Pane;

class IconsPage final : public Stack {
  public:
    IconsPage();

  private:
    void show(const std::string& sheet);

    std::shared_ptr<IconSheetView> sheet_;
    std::shared_ptr<Pane> pane_;
};

}  // namespace corvane::gallery
