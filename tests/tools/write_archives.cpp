// Writes archives for check_archive.py into a directory, with numbers of objects in the file around
// which the widths of references change.
#include "corvane/models/CVIndexPath.h"
#include "corvane/platform/BigEndian.h"
#include "corvane/platform/KeyedArchiver.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>

namespace corvane {
namespace {

std::uint64_t objectCount(const platform::Bytes& archive) {
    auto* end = reinterpret_cast<const std::uint8_t*>(archive.data()) + archive.size();
    return platform::readBigEndian(end - 24, 8);
}

/// Each text brings itself and the UID of its slot. "root" is in every archive already and brings
/// the UID alone, which makes odd counts even.
platform::ValueList listOfTexts(std::size_t count, bool withKnownText) {
    platform::ValueList list;
    if (withKnownText) list.items.emplace_back("root");
    for (std::size_t i = 0; i < count; ++i)
        list.items.emplace_back("text " + std::to_string(i));
    return list;
}

bool writeList(const std::string& directory, std::size_t objects) {
    for (bool withKnownText : {false, true}) {
        const auto with = [&](std::size_t texts) { return listOfTexts(texts, withKnownText); };
        const auto least = objectCount(platform::KeyedArchiver::archivedData(with(1)).value());
        const auto list = with(1 + (objects - least) / 2);
        if (objectCount(platform::KeyedArchiver::archivedData(list).value()) != objects) continue;
        return !platform::KeyedArchiver::archiveToFile(
            list, directory + "/objects-" + std::to_string(objects) + ".archive");
    }
    std::fprintf(stderr, "no list gives exactly %zu objects\n", objects);
    return false;
}

bool writeAll(const std::string& directory) {
    std::filesystem::create_directories(directory);
    // An archive has a dozen objects of its own, so these two stand for "no objects" and "one".
    bool done = !platform::KeyedArchiver::archiveToFile(nullptr, directory + "/absent.archive") &&
                !platform::KeyedArchiver::archiveToFile("x", directory + "/one-text.archive");
    CVIndexPath path(2, 5);
    path.setPasteboardText("Water the plants");
    done = done && !platform::KeyedArchiver::archiveToFile(path, directory + "/index-path.archive");
    for (std::size_t objects : {255, 256, 257, 65535, 65536, 300000})
        done = done && writeList(directory, objects);
    return done;
}

}  // namespace
}  // namespace corvane

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: write_archives DIRECTORY\n");
        return 2;
    }
    return corvane::writeAll(argv[1]) ? 0 : 1;
}
