// The names for today and tomorrow that an application gives to a parser or a kind of field.
#pragma once

#include "corvane/dates/DayNames.h"

#include <optional>
#include <string>
#include <utility>

namespace corvane {

/// The class-level names of the class that derives from it, which are that class's own. Each is
/// literal text or a reference to a translation ("${Today}"), looked up at each use; none, as at
/// first, where the application gives no such name. Without locks: for one thread at a time.
template <class Owner>
class SettableDayNames {
  public:
    using Name = std::optional<std::string>;

    static void setTodayName(Name name) { set(DayName::Today, std::move(name)); }
    static Name todayName() { return dayNames().name(DayName::Today); }
    static void setTodayShortName(Name name) { set(DayName::TodayShort, std::move(name)); }
    static Name todayShortName() { return dayNames().name(DayName::TodayShort); }
    static void setTomorrowName(Name name) { set(DayName::Tomorrow, std::move(name)); }
    static Name tomorrowName() { return dayNames().name(DayName::Tomorrow); }
    static void setTomorrowShortName(Name name) { set(DayName::TomorrowShort, std::move(name)); }
    static Name tomorrowShortName() { return dayNames().name(DayName::TomorrowShort); }

    /// Sets all four to what the string tables have for them, in the user's language at each use.
    static void takeNamesOfStringTables() { names() = DayNames::ofStringTables(); }

    /// All four, as grammars want them.
    static const DayNames& dayNames() { return names(); }

  private:
    static void set(DayName which, Name name) { names().setName(which, std::move(name)); }

    static DayNames& names() {
        static DayNames names;
        return names;
    }
};

}  // namespace corvane
