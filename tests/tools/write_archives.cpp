// Writes archives for check_archive.py into a directory: some with a given number of objects in
// the file, where the widths of references change, and a repository of real size.
#include "corvane/bridge/HGSharedRepository.h"
#include "corvane/platform/BigEndian.h"
#include "corvane/platform/Files.h"
#include "corvane/platform/KeyedArchiver.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

namespace corvane {
namespace {

using platform::URL;

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

std::shared_ptr<HGTaskProxy> makeTask(const URL& uri, int number) {
    auto task = std::make_shared<HGTaskProxy>(uri);
    task->setTitle("Task " + std::to_string(number));
    if (number % 3 == 0) task->setNotes("Grüße, Nr. " + std::to_string(number));
    if (number % 2 == 0) task->setDue(EXDateOnly(2024, 1 + number % 12, 1 + number % 28));
    task->setStatus(static_cast<std::int16_t>(number % 9));
    task->setStarred(number % 7 == 0);
    task->setProjectName("Project " + std::to_string(number % 40));
    if (number % 10 != 0) return task;
    auto attachment =
        std::make_shared<HGAttachmentProxy>(URL("store://Attachment/p" + std::to_string(number)));
    attachment->setUrl("file:///tmp/" + std::to_string(number));
    attachment->setType(-1);
    task->setAttachmentProxies(HGTaskProxy::AttachmentProxies{attachment});
    return task;
}

bool writeRepository(const std::string& directory, int tasks) {
    HGSharedRepository::ByURI<HGTaskProxy> taskProxies;
    HGSharedRepository::ByURI<HGProjectProxy> projects;
    HGSharedRepository::URIs order;
    for (int i = 0; i < tasks; ++i) {
        const URL uri("store://Task/p" + std::to_string(i));
        taskProxies.emplace(uri, makeTask(uri, i));
        order.push_back(uri);
    }
    auto project = std::make_shared<HGProjectProxy>(URL("store://Project/p1"));
    project->setName("Project 1");
    project->setTaskProxyURIs(order);
    projects.emplace(*project->uriRepresentation(), project);
    const HGSharedRepository repository(project, {}, {}, {}, {}, projects,
                                        HGSharedRepository::URIs{*project->uriRepresentation()},
                                        taskProxies);
    return !platform::KeyedArchiver::archiveToFile(repository, directory + "/repository.archive");
}

bool writeAll(const std::string& directory) {
    std::filesystem::create_directories(directory);
    // An archive has a dozen objects of its own, so these two stand for "no objects" and "one".
    bool done = !platform::KeyedArchiver::archiveToFile(nullptr, directory + "/absent.archive") &&
                !platform::KeyedArchiver::archiveToFile("x", directory + "/one-text.archive");
    for (std::size_t objects : {255, 256, 257, 65535, 65536, 300000})
        done = done && writeList(directory, objects);
    return done && writeRepository(directory, 2000);
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
