// The application's images by identifier. One thread: the one that draws.
#pragma once

#include "corvane/platform/Image.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace corvane {

/// Knows no image by itself: what fills it is up to a subclass for the platform.
class CVImageManager {
  public:
    CVImageManager() = default;
    virtual ~CVImageManager() = default;
    CVImageManager(const CVImageManager&) = delete;
    CVImageManager& operator=(const CVImageManager&) = delete;

    /// Null until the application sets one.
    static std::shared_ptr<CVImageManager> instance();
    static void setInstance(std::shared_ptr<CVImageManager> manager);

    /// Null where there is none.
    platform::ImagePtr imageWithIdentifier(std::string_view identifier) const;

    virtual void loadImageWithName(std::string_view name, std::string_view identifier);

  protected:
    /// In place of an earlier one; null is ignored.
    void storeImage(platform::ImagePtr image, std::string_view identifier);

  private:
    std::map<std::string, platform::ImagePtr, std::less<>> images_;
};

}  // namespace corvane
