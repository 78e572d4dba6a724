#pragma once

#include <cstdint>
#include <string_view>

#include "window/form/Form.h"
#include "window/pages/Pages.h"

namespace tarvex {

// The rows that pages are made of. A row for a field takes its name and its explanation from the
// field; `label` has the access key.

FormRow HeadingRow(std::u16string_view text);
FormRow TextRow(std::u16string_view text);

/// The answer to a question.
FormRow OptionRow(std::int32_t row, std::int32_t group, std::u16string_view label);

/// An edit control of one line. `chars` is its width, 0: all there is.
FormRow LineRow(std::int32_t field, std::u16string_view label, std::int32_t chars = 0);

/// The same for a path, with a "..." button.
FormRow PathRow(std::int32_t field, std::u16string_view label);

/// A second row for a file name.
FormRow SecondPathRow(std::int32_t field, std::u16string_view label);

FormRow SecretRow(std::int32_t field, std::u16string_view label);
FormRow LinesRow(std::int32_t field, std::u16string_view label, std::int32_t lines);
FormRow CheckRow(std::int32_t field, std::u16string_view label);

// The pages, each with its rows.
Page ApplicationPage();
Page AccessPage();
Page DatabasePage();
Page WorkgroupPage();
Page OptionsPage();
Page PicturePage();
Page ErrorsPage();
Page DiagnosisPage();
Page ProgramPage();

}  // namespace tarvex
