// The application's colors by identifier. One thread: the one that draws.
#pragma once

#include "corvane/platform/Color.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Knows no color by itself: what fills it is up to a subclass for the platform.
class CVColorManager {
  public:
    CVColorManager() = default;
    virtual ~CVColorManager() = default;
    CVColorManager(const CVColorManager&) = delete;
    CVColorManager& operator=(const CVColorManager&) = delete;

    /// Null until the application sets one, which defines its global colors at once.
    static std::shared_ptr<CVColorManager> instance();
    static void setInstance(std::shared_ptr<CVColorManager> manager);

    std::optional<platform::Color> colorWithIdentifier(std::string_view identifier) const;

    /// Fractions from 0 to 1.
    virtual void addColorWithIdentifier(std::string_view identifier, double red, double green,
                                        double blue, double alpha);
    virtual void defineGlobalColors();

  protected:
    /// In place of an earlier one.
    void storeColor(const platform::Color& color, std::string_view identifier);

  private:
    std::map<std::string, platform::Color, std::less<>> colors_;
};

}  // namespace corvane
