// Named colors from a text. The format is described in docs/formats/artwork.md.
#pragma once

#include "corvane/platform/ColorResources.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::platform {

/// A light and a dark variant of every color.
///
///     Palette palette = Palette::parse("tintColor = #0A66D9 #5AA2FF");
///     palette.colorNamed("tintColor")->in(Appearance::Light).green   // 0.4
class Palette final : public ColorResources {
  public:
    /// Lines that cannot be read are passed over and become problems; every other line counts.
    static Palette parse(std::string_view text);

    std::optional<Color> colorNamed(std::string_view name) override;

    const std::map<std::string, Color, std::less<>>& colors() const { return colors_; }
    const std::vector<std::string>& problems() const { return problems_; }

  private:
    std::map<std::string, Color, std::less<>> colors_;
    std::vector<std::string> problems_;
};

}  // namespace corvane::platform
