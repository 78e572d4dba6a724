#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "window/form/Form.h"

namespace tarvex {

/// Font of a text in a form. Fixed has characters of one width.
enum class FormFont { Normal, Small, Heading, Fixed };

/// What the layout must know of the screen. All lengths are pixels.
class FormMeasure {
public:
    virtual ~FormMeasure() = default;

    /// Width of a text of one line.
    virtual int TextWidth(FormFont font, std::u16string_view text) const = 0;

    /// Height of a text whose lines are broken at that width.
    virtual int TextHeight(FormFont font, std::u16string_view text, int width) const = 0;

    virtual int LineHeight(FormFont font) const = 0;

    /// Height of an edit control of one line; buttons are as high.
    virtual int ControlHeight() const = 0;

    /// A length that is `pixels` on a screen with 96 pixels per inch.
    virtual int Scaled(int pixels) const = 0;
};

/// Pixels from the upper left corner of the form. A part that is not there is empty.
struct FormRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    int Right() const { return left + width; }
    int Bottom() const { return top + height; }
    bool IsEmpty() const { return width <= 0 || height <= 0; }
    bool operator==(const FormRect&) const = default;
};

/// Where the parts of a row stand.
struct RowPlace {
    bool visible = false;  ///< a hidden row has no parts
    FormRect label;
    FormRect name;
    FormRect control;  ///< of Heading and Text the text, of Check and Radio box and label
    std::vector<FormRect> buttons;  ///< those of the row; a Secret's own one, which shows the text,
                                    ///< comes before them
    FormRect icon;                  ///< before a message
    FormRect hint;                  ///< hint or message
    FormRect note;
};

struct FormPlaces {
    std::vector<RowPlace> rows;  ///< one for each row
    int height = 0;              ///< what the visible rows take, margins included
};

/// The room that a form is placed in.
struct FormSpace {
    int width = 0;
    int height = 0;       ///< rows that grow take what is left of it
    int labelColumn = 0;  ///< width of the column of labels; 0: what LabelColumn gives
};

/// Caption of the button that shows a Secret, and masks it again.
std::u16string_view RevealCaption(bool revealed);

/// A label as it is seen: without the "&" before its access key.
std::u16string WithoutAccessKey(std::u16string_view label);

/// Width of the column of labels that suits these rows in a form of that width. Forms that are
/// shown one after the other in the same place take the largest one of all.
int LabelColumn(const std::vector<FormRow>& rows, const FormMeasure& measure, int width);

/// Places the rows below each other; `states` has one for each of them. Labels, and controls, stand
/// on a line of sight each; no text is cut, and no parts overlap, as long as the form is about 90
/// characters wide, or its words are shorter than a third of it. A row keeps its height while its
/// hint gives place to a message of as many lines.
FormPlaces LayOutForm(const std::vector<FormRow>& rows, const std::vector<RowState>& states,
                      const FormMeasure& measure, const FormSpace& space);

}  // namespace tarvex
