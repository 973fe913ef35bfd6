// With what a detail form edits a field. The codes are those that screens and forms agree on.
#pragma once

#include <cstdint>

namespace corvane {

/// All but the first and the last are enabled exactly when their field can be edited. Codes beyond
/// the last show nothing. Which of the text editors has several lines or hides its text, and which
/// of the date editors has a time too, is the form's business.
enum CVDetailEditorType : std::int64_t {
    CVDetailEditorTypeUnsupported = 0,    ///< none; the form warns of it
    CVDetailEditorTypeText = 1,           ///< the value as text
    CVDetailEditorTypeSecondText = 2,     ///< the same
    CVDetailEditorTypeChoice = 3,         ///< a pop-up of the choices, with their icons
    CVDetailEditorTypeDate = 4,           ///< the value as a moment
    CVDetailEditorTypeTimeOnly = 5,       ///< the value as a time of day
    CVDetailEditorTypeThirdText = 6,      ///< as the other texts
    CVDetailEditorTypeRadioGroup = 7,     ///< a row for each choice
    CVDetailEditorTypeSwitch = 8,         ///< on when the value is true
    CVDetailEditorTypeDateOnly = 9,       ///< the value as a day
    CVDetailEditorTypeSecondDate = 10,    ///< as the other date
    CVDetailEditorTypeCustomControl = 11  ///< the controller's own, which it fills itself
};

}  // namespace corvane
