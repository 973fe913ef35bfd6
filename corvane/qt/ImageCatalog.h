// The image resources that are files of an installed icon set. The format of its table is described
// in docs/formats/artwork.md.
#pragma once

#include "corvane/qt/ImageSource.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::qt {

/// Which file stands for which name. A name's suffixes (see ImageResourceName.h) only choose the
/// size, in which the file is drawn in the middle of a square.
class ImageCatalog final : public ImageSource {
  public:
    struct Entry {
        std::string file;    ///< in any of the directories
        double portion = 1;  ///< of the square's side that it takes up
    };

    /// Reads a table's text. Lines that cannot be read are passed over and become problems; every
    /// other line counts.
    static ImageCatalog parse(std::string_view table);

    /// Null also where the file is missing or cannot be read as a picture.
    platform::ImagePtr imageNamed(std::string_view name) override;

    const std::vector<std::string>& problems() const { return problems_; }

    /// Where files are looked for, first to last.
    const std::vector<std::string>& directories() const { return directories_; }
    void setDirectories(std::vector<std::string> directories);

  private:
    std::map<std::string, Entry, std::less<>> entries_;
    std::vector<std::string> directories_;
    std::vector<std::string> problems_;
};

}  // namespace corvane::qt
