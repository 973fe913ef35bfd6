// What the rows of the table's benchmarks show, and the application they run in.
#pragma once

#include "corvane/platform/Image.h"

#include <QString>
#include <cstddef>
#include <string>
#include <vector>

namespace corvane::bench {

inline constexpr int kViewportWidth = 800;
inline constexpr int kViewportHeight = 600;

/// Measures of a row, in points: an icon, beside it a title above a note, and a date on the right.
inline constexpr int kMargin = 6;
inline constexpr int kIconSide = 16;
inline constexpr int kTextLeft = 32;
inline constexpr int kDateWidth = 90;
inline constexpr int kTitleSize = 13;  ///< of the font
inline constexpr int kNoteSize = 11;

template <class Text>
struct TaskRecord {
    Text title;
    Text note;
    Text date;
};

/// Each toolkit has the texts in its own form, so that neither converts what the other need not.
const TaskRecord<std::string>& taskRecord(std::size_t number);
const TaskRecord<QString>& qtTaskRecord(std::size_t number);

const platform::ImagePtr& taskIcon();

/// The numbers of the first records.
std::vector<std::size_t> recordNumbers(std::size_t count);

/// Runs the event loop until nobody has anything left to do, painting included.
void settle();

/// How many rows were painted so far, by whoever paints rows.
inline std::size_t paintedRows = 0;

}  // namespace corvane::bench
