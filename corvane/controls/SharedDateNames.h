// The names of months and weekdays that all the fields of a form read by.
#pragma once

#include "corvane/dates/DateNameTables.h"
#include "corvane/platform/Locale.h"

#include <memory>

namespace corvane {

/// As dateNameTables, whose work is done once for a locale for as long as no other one is asked
/// for. Any thread.
std::shared_ptr<const DateNameTables> sharedDateNames(const platform::Locale& locale,
                                                      bool withNarrowMonths);

}  // namespace corvane
