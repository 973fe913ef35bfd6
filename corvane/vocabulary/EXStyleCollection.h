// The styles and image maps of an application by name. Held by shared pointers; one thread: the one
// that draws.
#pragma once

#include "corvane/vocabulary/EXImageMap.h"
#include "corvane/vocabulary/EXStyle.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace corvane {

class EXStyleCollection {
  public:
    using Styles = std::map<std::string, std::shared_ptr<EXStyle>, std::less<>>;
    using ImageMaps = std::map<std::string, std::shared_ptr<EXImageMap>, std::less<>>;

    EXStyleCollection() = default;
    virtual ~EXStyleCollection() = default;
    EXStyleCollection(const EXStyleCollection&) = delete;
    EXStyleCollection& operator=(const EXStyleCollection&) = delete;

    /// The one that views ask. Null until the application sets it, once, when it starts.
    static std::shared_ptr<EXStyleCollection> defaultCollection();
    static void setDefaultCollection(std::shared_ptr<EXStyleCollection> collection);

    /// Under the object's name, in place of an earlier one; null, and what has no name, is ignored.
    void addStyle(std::shared_ptr<EXStyle> style);
    void addImageMap(std::shared_ptr<EXImageMap> map);

    /// Null where there is none of the name.
    std::shared_ptr<EXStyle> styleWithName(std::string_view name) const;
    std::shared_ptr<EXImageMap> imageMapWithName(std::string_view name) const;

    const Styles& styles() const { return styles_; }
    const ImageMaps& imageMaps() const { return imageMaps_; }

  private:
    Styles styles_;
    ImageMaps imageMaps_;
};

}  // namespace corvane
