// A document with a task, and the model that its form is made of; on March 5, 2026.
#pragma once

#include "corvane/platform/Clock.h"
#include "corvane/platform/Locale.h"
#include "corvane/platform/TimeZone.h"

#include "apps/cli/TaskDetailModel.h"
#include "apps/document/BackupFile.h"

#include <gtest/gtest.h>

#include <memory>
#include <string_view>

namespace corvane::cli {

struct TaskFixture : testing::Test {
    static constexpr std::string_view kDocument = R"(<backup version="1">
<projects><project uri="p:0"><nameRaw>No Project</nameRaw><general>true</general></project>
<project uri="p:1"><nameRaw>House</nameRaw></project></projects>
<tasks><task uri="t:1"><titleRaw>Pay</titleRaw><statusRaw>Inbox</statusRaw>
<projectRaw>p:1</projectRaw><dueRaw>2026-03-20</dueRaw><actions><action><titleRaw>a</titleRaw>
<statusRaw>Completed</statusRaw></action><action><titleRaw>b</titleRaw></action></actions></task>
</tasks></backup>)";

    platform::FixedClock clock{platform::Instant(std::chrono::seconds(1'772'700'000))};
    platform::ScopedClock clockScope{clock};
    platform::ScopedTimeZone zone{*platform::TimeZone::named("UTC")};
    platform::ScopedLocale locale{platform::Locale("en_US")};
    platform::ScopedLanguages languages{{"en"}};
    platform::Error error;
    std::shared_ptr<backup::BackupDocument> document = std::make_shared<backup::BackupDocument>(
        *backup::parseBackupDocument(kDocument, "test", &error));
    std::shared_ptr<TaskDetailModel> model = std::make_shared<TaskDetailModel>(document);
};

}  // namespace corvane::cli
