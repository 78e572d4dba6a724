#include "window/form/FormLayout.h"

#include <algorithm>

#include "text/Text.h"

namespace tarvex {

namespace {

// Lengths at 96 pixels per inch, the usual ones of the system's dialogs.
constexpr int kMargin = 11;
constexpr int kRowGap = 7;
constexpr int kOptionGap = 4;  // between check boxes, and between options
constexpr int kHintGap = 2;    // between a control and the line below it
constexpr int kColumnGap = 10;
constexpr int kButtonGap = 6;
constexpr int kIndent = 18;
constexpr int kControlBorders = 14;
constexpr int kWidestLabels = 190;
constexpr int kNarrowestControl = 80;
constexpr int kBox = 17;  // of a check box or option, with its distance from the label
constexpr int kFocus = 6;
constexpr int kSmallButtonPadding = 14;
constexpr int kButtonPadding = 24;
constexpr int kNarrowestButton = 75;
constexpr int kIcon = 16;
constexpr int kIconGap = 4;
constexpr int kOverhang = 2;  // what letters may reach out of their measured width
constexpr int kNoteStep = 24;
constexpr int kListPadding = 4;  // what a line of a list is higher than its text
constexpr int kScrollBar = 20;

constexpr int kUsualTextLines = 3;
constexpr int kUsualListLines = 5;
constexpr int kUsualOutputLines = 10;

bool HasLabelBeside(const FormRow& row) {
    switch (row.kind) {
        case RowKind::Line:
        case RowKind::Secret:
        case RowKind::Lines:
        case RowKind::Choice:
        case RowKind::Buttons:
        case RowKind::Check:
            return true;
        default:
            return false;
    }
}

/// A message can come, or the room left: the line below the control is kept for them.
bool KeepsLineBelow(const FormRow& row) {
    switch (row.kind) {
        case RowKind::Line:
        case RowKind::Secret:
        case RowKind::Lines:
        case RowKind::Choice:
            return true;
        case RowKind::List:
            return !row.buttons.empty() || !row.hint.empty();
        default:
            return !row.hint.empty();
    }
}

int WidestWord(FormFont font, std::u16string_view label, const FormMeasure& measure) {
    int widest = 0;
    for (const std::u16string_view word : text::Split(label, u' ')) {
        widest = std::max(widest, measure.TextWidth(font, word));
    }
    return widest;
}

class Layout {
public:
    Layout(const FormMeasure& measure, const FormSpace& space, int labelColumn, int growth)
        : measure_(measure),
          growth_(growth),
          left_(Scaled(kMargin)),
          right_(space.width - Scaled(kMargin)),
          top_(Scaled(kMargin)),
          labelColumn_(labelColumn),
          column_(labelColumn == 0 ? left_ : left_ + labelColumn + Scaled(kColumnGap)) {
        right_ = std::max(right_, column_ + Scaled(kNarrowestControl));
    }

    RowPlace Place(const FormRow& row, const RowState& state) {
        RowPlace place;
        place.visible = state.visible;
        if (!state.visible) {
            return place;
        }
        top_ += anything_ ? Gap(row.kind) : 0;
        anything_ = true;
        before_ = row.kind;
        beforeHasLineBelow_ = KeepsLineBelow(row);
        switch (row.kind) {
            case RowKind::Heading:
                PlaceText(row.label, FormFont::Heading, left_, place);
                break;
            case RowKind::Text:
                PlaceText(state.text.empty() ? row.label : state.text, FormFont::Normal,
                          Indented(row), place);
                break;
            case RowKind::Check:
                PlaceCheck(row, state, place);
                break;
            case RowKind::Radio:
                PlaceRadio(row, state, place);
                break;
            case RowKind::List:
            case RowKind::Output:
                PlaceWide(row, state, place);
                break;
            case RowKind::Buttons:
                PlaceButtonRow(row, place);
                break;
            default:
                PlaceField(row, state, place);
        }
        return place;
    }

    int Height() const { return top_ + Scaled(kMargin); }

private:
    int Scaled(int pixels) const { return measure_.Scaled(pixels); }
    int LineHeight(FormFont font) const { return measure_.LineHeight(font); }
    int ControlHeight() const { return measure_.ControlHeight(); }
    /// What a control is higher than its text.
    int AroundText() const { return ControlHeight() - LineHeight(FormFont::Normal); }
    int Indented(const FormRow& row) const { return left_ + row.indent * Scaled(kIndent); }

    int Gap(RowKind kind) const {
        const bool options = (kind == RowKind::Radio || kind == RowKind::Check) && before_ == kind;
        return Scaled(options && !beforeHasLineBelow_ ? kOptionGap : kRowGap);
    }

    void PlaceText(std::u16string_view text, FormFont font, int left, RowPlace& place) {
        const int width = right_ - left;
        place.control = {left, top_, width, measure_.TextHeight(font, text, width)};
        top_ = place.control.Bottom();
    }

    void PlaceField(const FormRow& row, const RowState& state, RowPlace& place) {
        std::vector<int> widths;
        if (row.kind == RowKind::Secret) {
            widths.push_back(std::max(SmallButtonWidth(RevealCaption(false)),
                                      SmallButtonWidth(RevealCaption(true))));
        }
        for (const FormButton& button : row.buttons) {
            widths.push_back(SmallButtonWidth(button.caption));
        }
        int room = right_ - column_;
        for (const int width : widths) {
            room -= width + Scaled(kButtonGap);
        }
        room = std::max(room, Scaled(kNarrowestControl));
        int height = ControlHeight();
        if (row.kind == RowKind::Lines) {
            const int lines = row.lines > 0 ? row.lines : kUsualTextLines;
            height += (lines - 1) * LineHeight(FormFont::Normal) + Growth(row);
        }
        place.control = {column_, top_, std::min(WidthOf(row, room), room), height};
        int left = place.control.Right();
        for (const int width : widths) {
            left += Scaled(kButtonGap);
            place.buttons.push_back({left, top_, width, ControlHeight()});
            left += width;
        }
        PlaceLabelBeside(row, place);
        PlaceBelow(row, state, column_, place.control.Bottom(), place);
        top_ = std::max({top_, place.label.Bottom(), place.name.Bottom()});
    }

    int WidthOf(const FormRow& row, int room) const {
        if (row.chars <= 0) {
            return room;
        }
        const std::u16string text(static_cast<std::size_t>(row.chars), u'n');
        const int arrow = row.kind == RowKind::Choice ? Scaled(kScrollBar) : 0;
        return measure_.TextWidth(FormFont::Normal, text) + Scaled(kControlBorders) + arrow;
    }

    void PlaceLabelBeside(const FormRow& row, RowPlace& place) const {
        const int left = Indented(row);
        const int width = std::max(left_ + labelColumn_ - left, 1);
        // The texts of label and control stand on one line.
        int top = top_ + AroundText() / 2;
        if (!row.label.empty() && row.kind != RowKind::Check) {
            const std::u16string label = WithoutAccessKey(row.label);
            place.label = {left, top, width, measure_.TextHeight(FormFont::Normal, label, width)};
            top = std::max(place.label.Bottom(), top_ + ControlHeight() + Scaled(kHintGap));
        }
        if (!row.name.empty()) {
            place.name = {left, top, width, LineHeight(FormFont::Small)};
        }
    }

    /// Hint or message, and at the right of the same line the room left; moves on.
    void PlaceBelow(const FormRow& row, const RowState& state, int left, int bottom,
                    RowPlace& place) {
        top_ = bottom;
        const std::u16string& message = state.message;
        if (message.empty() && state.note.empty() && !KeepsLineBelow(row)) {
            return;
        }
        const int top = bottom + Scaled(kHintGap);
        const int line = LineHeight(FormFont::Small);
        int right = right_;
        if (!state.note.empty()) {
            // In steps, so that a hint is not broken anew with each digit.
            const int step = Scaled(kNoteStep);
            const int width = measure_.TextWidth(FormFont::Small, state.note) + Scaled(kOverhang);
            const int kept = std::min((width + step - 1) / step * step, (right_ - left) / 2);
            place.note = {right_ - kept, top, kept,
                          measure_.TextHeight(FormFont::Small, state.note, kept)};
            right = place.note.left - Scaled(kColumnGap);
        }
        int height = line;
        const auto placeText = [&](const std::u16string& text, int from) {
            const int width = std::max(right - from, 1);
            const int needed = std::max(measure_.TextHeight(FormFont::Small, text, width), line);
            height = std::max(height, needed);
            return FormRect{from, top, width, needed};
        };
        if (!row.hint.empty()) {
            place.hint = placeText(row.hint, left);
        }
        if (!message.empty()) {
            const int icon = Scaled(kIcon);
            place.icon = {left, std::max(bottom, top + (line - icon) / 2), icon, icon};
            place.hint = placeText(message, left + icon + Scaled(kIconGap));
            height = std::max(height, place.icon.Bottom() - top);
        }
        // The icon of a message is higher than the line.
        height = std::max(height, KeepsLineBelow(row) ? Scaled(kIcon) : 0);
        top_ = std::max(top + height, place.note.Bottom());
    }

    /// A box and its label, broken where it is too long.
    FormRect BoxPlace(const FormRow& row, int left) const {
        const std::u16string label = WithoutAccessKey(row.label);
        const int around = Scaled(kBox) + Scaled(kFocus);
        const int width =
            std::min(measure_.TextWidth(FormFont::Normal, label) + around, right_ - left);
        const int height = measure_.TextHeight(FormFont::Normal, label, width - around);
        return {left, top_, width, std::max(height, Scaled(kIcon)) + Scaled(kHintGap)};
    }

    void PlaceCheck(const FormRow& row, const RowState& state, RowPlace& place) {
        const int left = column_ + row.indent * Scaled(kIndent);
        place.control = BoxPlace(row, left);
        if (!row.name.empty()) {
            // On the line of the label, whose font is larger.
            const int down =
                Scaled(kHintGap) / 2 + LineHeight(FormFont::Normal) - LineHeight(FormFont::Small);
            place.name = {left_, top_ + down, labelColumn_, LineHeight(FormFont::Small)};
        }
        PlaceBelow(row, state, left + Scaled(kBox), place.control.Bottom(), place);
        top_ = std::max(top_, place.name.Bottom());
    }

    void PlaceRadio(const FormRow& row, const RowState& state, RowPlace& place) {
        const int left = Indented(row);
        place.control = BoxPlace(row, left);
        PlaceNameAfter(row, place.control, place);
        PlaceBelow(row, state, left + Scaled(kBox), std::max(place.control.Bottom(), top_), place);
    }

    /// The name on the same line as the text before it, or below when there is no room.
    void PlaceNameAfter(const FormRow& row, const FormRect& before, RowPlace& place) {
        top_ = std::max(top_, before.Bottom());
        if (row.name.empty()) {
            return;
        }
        const int height = LineHeight(FormFont::Small);
        const int width = measure_.TextWidth(FormFont::Small, row.name) + Scaled(kOverhang);
        const int left = before.Right() + Scaled(kButtonGap);
        if (left + width <= right_) {
            place.name = {left, before.Bottom() - height, width, height};
        } else {
            place.name = {before.left, before.Bottom(), right_ - before.left, height};
            top_ = place.name.Bottom();
        }
    }

    /// Lists and output take the whole width, with the label above.
    void PlaceWide(const FormRow& row, const RowState& state, RowPlace& place) {
        const int left = Indented(row);
        const int width = right_ - left;
        if (!row.label.empty()) {
            const std::u16string label = WithoutAccessKey(row.label);
            const int needed = measure_.TextWidth(FormFont::Normal, label) + Scaled(kOverhang);
            place.label = {left, top_, std::min(needed, width),
                           measure_.TextHeight(FormFont::Normal, label, width)};
            PlaceNameAfter(row, place.label, place);
            top_ += Scaled(kHintGap) * 2;
        }
        place.control = {left, top_, width, WideHeight(row)};
        int bottom = place.control.Bottom();
        if (!row.buttons.empty()) {
            bottom = FlowButtons(row, left, bottom + Scaled(kButtonGap), place);
        }
        PlaceBelow(row, state, left, bottom, place);
    }

    int WideHeight(const FormRow& row) const {
        if (row.kind == RowKind::Output) {
            const int lines = row.lines > 0 ? row.lines : kUsualOutputLines;
            return lines * LineHeight(FormFont::Fixed) + AroundText() + Scaled(kScrollBar) +
                   Growth(row);
        }
        const int lines = (row.lines > 0 ? row.lines : kUsualListLines) + 1;  // and the header
        return lines * (LineHeight(FormFont::Normal) + Scaled(kListPadding)) + AroundText() +
               Growth(row);
    }

    int Growth(const FormRow& row) const { return row.grows ? growth_ : 0; }

    void PlaceButtonRow(const FormRow& row, RowPlace& place) {
        PlaceLabelBeside(row, place);
        const int bottom = FlowButtons(row, column_, top_, place);
        top_ = std::max({bottom, place.label.Bottom(), place.name.Bottom()});
    }

    /// Buttons beside each other, on more than one line when there is no room. Returns the bottom.
    int FlowButtons(const FormRow& row, int left, int top, RowPlace& place) const {
        int next = left;
        for (const FormButton& button : row.buttons) {
            const int width =
                std::max(measure_.TextWidth(FormFont::Normal, WithoutAccessKey(button.caption)) +
                             Scaled(kButtonPadding),
                         Scaled(kNarrowestButton));
            if (next > left && next + width > right_) {
                next = left;
                top += ControlHeight() + Scaled(kButtonGap);
            }
            place.buttons.push_back({next, top, width, ControlHeight()});
            next += width + Scaled(kButtonGap);
        }
        return top + ControlHeight();
    }

    /// Of a button beside a control.
    int SmallButtonWidth(std::u16string_view caption) const {
        return measure_.TextWidth(FormFont::Normal, WithoutAccessKey(caption)) +
               Scaled(kSmallButtonPadding);
    }

    const FormMeasure& measure_;
    const int growth_;  // of each row that grows
    const int left_;
    int right_;
    int top_;
    const int labelColumn_;
    const int column_;  // where the controls begin
    bool anything_ = false;
    RowKind before_ = RowKind::Text;
    bool beforeHasLineBelow_ = false;
};

FormPlaces LayOut(const std::vector<FormRow>& rows, const std::vector<RowState>& states,
                  const FormMeasure& measure, const FormSpace& space, int growth) {
    const int column =
        space.labelColumn > 0 ? space.labelColumn : LabelColumn(rows, measure, space.width);
    Layout layout(measure, space, column, growth);
    FormPlaces places;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        places.rows.push_back(layout.Place(rows[i], states[i]));
    }
    places.height = layout.Height();
    return places;
}

}  // namespace

std::u16string_view RevealCaption(bool revealed) {
    return revealed ? u"Verbergen" : u"Anzeigen";
}

std::u16string WithoutAccessKey(std::u16string_view label) {
    std::u16string plain;
    for (std::size_t i = 0; i < label.size(); ++i) {
        if (label[i] == u'&' && ++i == label.size()) {
            break;
        }
        plain += label[i];
    }
    return plain;
}

int LabelColumn(const std::vector<FormRow>& rows, const FormMeasure& measure, int width) {
    int widest = 0;
    int widestWord = 0;
    for (const FormRow& row : rows) {
        if (!HasLabelBeside(row)) {
            continue;
        }
        const int indent = row.kind == RowKind::Check ? 0 : row.indent * measure.Scaled(kIndent);
        const std::u16string label =
            row.kind == RowKind::Check ? std::u16string() : WithoutAccessKey(row.label);
        const int name = measure.TextWidth(FormFont::Small, row.name);
        if (label.empty() && row.name.empty()) {
            continue;
        }
        widest =
            std::max({widest, indent + measure.TextWidth(FormFont::Normal, label), indent + name});
        widestWord = std::max(
            {widestWord, indent + WidestWord(FormFont::Normal, label, measure), indent + name});
    }
    const int limit = std::min(measure.Scaled(kWidestLabels), width * 2 / 5);
    const int most = std::max(std::min(widest, limit), widestWord);
    return most == 0 ? 0 : most + measure.Scaled(kOverhang);
}

FormPlaces LayOutForm(const std::vector<FormRow>& rows, const std::vector<RowState>& states,
                      const FormMeasure& measure, const FormSpace& space) {
    FormPlaces places = LayOut(rows, states, measure, space, 0);
    int growing = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        growing += rows[i].grows && states[i].visible ? 1 : 0;
    }
    if (growing > 0 && places.height < space.height) {
        places = LayOut(rows, states, measure, space, (space.height - places.height) / growing);
    }
    return places;
}

}  // namespace tarvex
