#include "bench/ExampleRepository.h"

#include "corvane/platform/KeyedArchiver.h"

#include <fmt/format.h>

#include <unistd.h>

#include <filesystem>
#include <stdexcept>

namespace corvane::bench {

namespace {

using platform::URL;

constexpr int kTasksPerProject = 20;
constexpr int kProjectsPerPortfolio = 10;
constexpr int kCategories = 30;

URL uri(const char* entity, int number) {
    return URL(
        fmt::format("x-coredata://6F0C2B1E-9A37-4D55-8C11-2E4B7A90D3F1/{}/p{}", entity, number));
}

std::shared_ptr<HGTaskProxy> exampleTask(int i) {
    auto task = std::make_shared<HGTaskProxy>(uri("Task", i));
    task->setTitle(fmt::format("Write the {}th letter to the council", i));
    if (i % 3 == 0) {
        task->setNotes(fmt::format(
            "Letter {}: mention the crossing, the street lamps, and the bus that never comes on "
            "Sundays. Enclose the map and the signatures of the neighbours. {}",
            i, std::string(static_cast<std::size_t>(i % 90), '.')));
    }
    task->setStatus(static_cast<std::int16_t>(i % 7));
    task->setPriority(static_cast<std::int16_t>(i % 5));
    task->setStarred(i % 11 == 0);
    if (i % 2 == 0) task->setDue(EXDateOnly(2024, i % 12 + 1, i % 28 + 1));
    task->setProjectName(fmt::format("Project {}", i / kTasksPerProject));
    task->setCategoryName(fmt::format("Category {}", i % kCategories));
    task->setCategoryColor(static_cast<std::int16_t>(i % 8));
    task->setCategoryIndicator(static_cast<std::int16_t>(i % 45));
    if (i % 10 == 0) {
        auto attachment = std::make_shared<HGAttachmentProxy>(uri("Attachment", i));
        attachment->setUrl(fmt::format("https://example.org/council/letters/{}.pdf", i));
        task->setAttachmentProxies(HGTaskProxy::AttachmentProxies{attachment});
    }
    return task;
}

}  // namespace

std::shared_ptr<HGSharedRepository> exampleRepository(int tasks) {
    HGSharedRepository::ByURI<HGTaskProxy> taskMap;
    HGSharedRepository::ByURI<HGProjectProxy> projectMap;
    HGSharedRepository::ByURI<HGPortfolioProxy> portfolioMap;
    HGSharedRepository::ByURI<HGCategoryProxy> categoryMap;
    HGSharedRepository::URIs portfolioURIs, categoryURIs, projectURIs, taskURIs;
    for (int i = 0; i < kCategories; ++i) {
        auto category = std::make_shared<HGCategoryProxy>(uri("Category", i));
        category->setName(fmt::format("Category {}", i));
        categoryURIs.push_back(*category->uriRepresentation());
        categoryMap.emplace(*category->uriRepresentation(), category);
    }
    for (int i = 0; i < tasks; ++i) {
        auto task = exampleTask(i);
        taskURIs.push_back(*task->uriRepresentation());
        taskMap.emplace(*task->uriRepresentation(), task);
        if (i + 1 < tasks && (i + 1) % kTasksPerProject != 0) continue;
        const int number = i / kTasksPerProject;
        auto project = std::make_shared<HGProjectProxy>(uri("Project", number));
        project->setName(fmt::format("Project {}", number));
        project->setTaskProxyURIs(std::exchange(taskURIs, {}));
        projectURIs.push_back(*project->uriRepresentation());
        projectMap.emplace(*project->uriRepresentation(), project);
        if (i + 1 < tasks && (number + 1) % kProjectsPerPortfolio != 0) continue;
        auto portfolio =
            std::make_shared<HGPortfolioProxy>(uri("Portfolio", number / kProjectsPerPortfolio));
        portfolio->setName(fmt::format("Portfolio {}", number / kProjectsPerPortfolio));
        portfolio->setProjectProxyURIs(std::exchange(projectURIs, {}));
        portfolioURIs.push_back(*portfolio->uriRepresentation());
        portfolioMap.emplace(*portfolio->uriRepresentation(), portfolio);
    }
    return std::make_shared<HGSharedRepository>(nullptr, categoryMap, categoryURIs, portfolioMap,
                                                portfolioURIs, projectMap, std::nullopt, taskMap);
}

std::string exampleRepositoryFile(int tasks) {
    // In memory where the system has such a folder: it is the library that is measured here.
    const std::filesystem::path memory = "/dev/shm";
    const auto folder =
        std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
    const auto path = folder / fmt::format("corvane-bench-{}-{}.archive", ::getuid(), tasks);
    if (auto error =
            platform::KeyedArchiver::archiveToFile(*exampleRepository(tasks), path.string()))
        throw std::runtime_error(error->message);
    return path.string();
}

}  // namespace corvane::bench
