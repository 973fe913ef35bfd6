// The file behind UserDefaults, which several processes read and change. Not for anyone else; used
// by one thread at a time.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/Error.h"
#include "corvane/platform/Value.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace corvane::platform {

/// A binary property list with a map of settings. It is replaced whole and synced, under a lock on
/// its directory. A file that is no such map is never overwritten: it gets another name first, and
/// the settings are empty then. The path is absolute; an empty one stands for nowhere, where
/// nothing can be read or written.
class UserDefaultsFile {
  public:
    using Settings = decltype(ValueMap::items);

    explicit UserDefaultsFile(std::string path) : path_(std::move(path)) {}

    // Both give the settings as they are in the file then; empty where there is none. On an error,
    // `settings` stay as they are.

    [[nodiscard]] std::optional<Error> read(Settings& settings);

    /// Lets `change` change what is in the file, with no other process in between. Writes nothing
    /// where nothing changes.
    [[nodiscard]] std::optional<Error> update(Settings& settings,
                                              const std::function<void(Settings&)>& change);

    const std::string& path() const { return path_; }

    /// Where a damaged file was put; told once.
    std::optional<std::string> takePlaceOfDamaged() {
        return std::exchange(placeOfDamaged_, std::nullopt);
    }

  private:
    struct Content {
        Bytes bytes;  ///< none where there is no file
        Settings settings;
    };
    std::optional<Error> readBytes(Bytes& bytes) const;
    std::optional<Error> readHeld(Content& content);
    std::optional<Error> moveAside();
    std::optional<Error> write(const Settings& settings, const Bytes& present) const;

    std::string path_;
    std::optional<std::string> placeOfDamaged_;
};

}  // namespace corvane::platform
