#include "window/form/FormLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "text/Text.h"

namespace tarvex {
namespace {

/// A screen on which every character is 6 pixels wide (small: 5, heading: 9) and a line 13 high
/// (small: 11, heading: 18), times `percent`.
class FakeMeasure : public FormMeasure {
public:
    explicit FakeMeasure(int percent = 100) : percent_(percent) {}

    int TextWidth(FormFont font, std::u16string_view text) const override {
        return static_cast<int>(text.size()) * CharWidth(font);
    }
    int TextHeight(FormFont font, std::u16string_view text, int width) const override {
        const int fits = std::max(width / CharWidth(font), 1);
        int lines = 1;
        int used = 0;
        for (const std::u16string_view word : text::Split(text, u' ')) {
            const int length = static_cast<int>(word.size());
            if (used > 0 && used + 1 + length > fits) {
                ++lines;
                used = 0;
            }
            lines += used == 0 ? std::max(length - 1, 0) / fits : 0;
            used += (used > 0 ? 1 : 0) + std::min(length, fits);
        }
        return lines * LineHeight(font);
    }
    int LineHeight(FormFont font) const override {
        return Scaled(font == FormFont::Heading ? 18 : font == FormFont::Small ? 11 : 13);
    }
    int ControlHeight() const override { return LineHeight(FormFont::Normal) + Scaled(8); }
    int Scaled(int pixels) const override { return pixels * percent_ / 100; }

private:
    int CharWidth(FormFont font) const {
        return Scaled(font == FormFont::Heading ? 9 : font == FormFont::Small ? 5 : 6);
    }
    int percent_;
};

constexpr int kWidth = 600;
constexpr int kLine = 13;
constexpr int kControl = 21;
constexpr int kMargin = 11;

struct Form {
    std::vector<FormRow> rows;
    std::vector<RowState> states;

    RowState& Add(FormRow row) {
        rows.push_back(std::move(row));
        return states.emplace_back();
    }
    FormPlaces Places(FormSpace space = {kWidth}, const FormMeasure& measure = FakeMeasure()) {
        return LayOutForm(rows, states, measure, space);
    }
};

FormRow Line(std::u16string label) {
    return {.kind = RowKind::Line, .id = 1, .label = std::move(label)};
}

std::vector<FormRect> Parts(const RowPlace& place) {
    std::vector<FormRect> parts = {place.label, place.name, place.control,
                                   place.icon,  place.hint, place.note};
    parts.insert(parts.end(), place.buttons.begin(), place.buttons.end());
    std::erase_if(parts, [](const FormRect& part) { return part.IsEmpty(); });
    return parts;
}

bool Overlap(const FormRect& a, const FormRect& b) {
    return a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() && b.top < a.Bottom();
}

TEST(WithoutAccessKey, LeavesOutTheMark) {
    EXPECT_EQ(u"Ordner:", WithoutAccessKey(u"&Ordner:"));
    EXPECT_EQ(u"Meier & Co", WithoutAccessKey(u"&Meier && Co"));
    EXPECT_EQ(u"Ende", WithoutAccessKey(u"Ende&"));
}

TEST(FormLayout, EmptyFormTakesItsMargins) {
    Form form;
    EXPECT_EQ(2 * kMargin, form.Places().height);
}

TEST(FormLayout, ControlsStandOnOneLineOfSight) {
    Form form;
    form.Add(Line(u"Ordner"));
    FormRow indented = Line(u"Name der Datei");
    indented.indent = 1;
    form.Add(indented);
    form.Add({.kind = RowKind::Choice, .label = u"Version"});
    form.Add({.kind = RowKind::Check, .label = u"Exklusiv"});
    form.Add({.kind = RowKind::Buttons, .buttons = {{1, u"Hilfe"}}});
    const FormPlaces places = form.Places();
    const int left = kMargin + 18 + 14 * 6 + 2 + 10;
    EXPECT_EQ(left, places.rows[0].control.left);
    EXPECT_EQ(left, places.rows[1].control.left);
    EXPECT_EQ(left, places.rows[2].control.left);
    EXPECT_EQ(left, places.rows[3].control.left);
    EXPECT_EQ(left, places.rows[4].buttons[0].left);
}

TEST(FormLayout, ControlsEndOnOneLineOfSight) {
    Form form;
    form.Add(Line(u"Ordner"));
    FormRow withButton = Line(u"Datei");
    withButton.buttons = {{2, u"..."}};
    form.Add(withButton);
    form.Add({.kind = RowKind::List});
    const FormPlaces places = form.Places();
    EXPECT_EQ(kWidth - kMargin, places.rows[0].control.Right());
    EXPECT_EQ(kWidth - kMargin, places.rows[1].buttons[0].Right());
    EXPECT_EQ(kWidth - kMargin, places.rows[2].control.Right());
}

TEST(FormLayout, LabelsStandOnOneLineOfSightPerIndent) {
    Form form;
    form.Add(Line(u"Ordner"));
    form.Add(Line(u"Name"));
    FormRow indented = Line(u"Datei");
    indented.indent = 2;
    form.Add(indented);
    const FormPlaces places = form.Places();
    EXPECT_EQ(kMargin, places.rows[0].label.left);
    EXPECT_EQ(kMargin, places.rows[1].label.left);
    EXPECT_EQ(kMargin + 36, places.rows[2].label.left);
}

TEST(FormLayout, TextsOfLabelAndControlStandOnOneLine) {
    Form form;
    form.Add(Line(u"Ordner"));
    const FormPlaces places = form.Places();
    EXPECT_EQ(kMargin, places.rows[0].control.top);
    EXPECT_EQ(kControl, places.rows[0].control.height);
    EXPECT_EQ(kMargin + (kControl - kLine) / 2, places.rows[0].label.top);
}

TEST(FormLayout, LongLabelIsBrokenInsteadOfNarrowingTheControls) {
    Form form;
    FormRow row = Line(u"Name der Datenbankdatei mit ihrer Endung und mehr");
    row.name = u"DBName";
    form.Add(row);
    const FormPlaces places = form.Places();
    EXPECT_EQ(190 + 2, places.rows[0].label.width);
    EXPECT_EQ(2 * kLine, places.rows[0].label.height);
    EXPECT_EQ(places.rows[0].label.Bottom(), places.rows[0].name.top);
}

TEST(FormLayout, ColumnTakesTheLongestWord) {
    Form form;
    form.Add(Line(u"Arbeitsgruppendateiverzeichnisnamen des Kunden"));
    EXPECT_EQ(35 * 6 + 2, form.Places().rows[0].label.width);
}

TEST(FormLayout, LabelAboveAListKeepsRoomForWhatLettersReachOut) {
    Form form;
    form.Add({.kind = RowKind::List, .label = u"&Einträge"});
    EXPECT_EQ(8 * 6 + 2, form.Places().rows[0].label.width);
}

TEST(FormLayout, ColumnOfLabelsIsAsWideAsAskedFor) {
    Form form;
    form.Add(Line(u"Ordner"));
    EXPECT_EQ(kMargin + 150 + 10, form.Places({kWidth, 0, 150}).rows[0].control.left);
}

TEST(FormLayout, HiddenRowCountsForTheColumnOfLabels) {
    Form form;
    form.Add(Line(u"Ordner"));
    form.Add(Line(u"Name der Datei")).visible = false;
    EXPECT_EQ(kMargin + 14 * 6 + 2 + 10, form.Places().rows[0].control.left);
}

TEST(FormLayout, FormWithoutLabelsHasNoColumnForThem) {
    Form form;
    form.Add({.kind = RowKind::Check, .label = u"Exklusiv"});
    EXPECT_EQ(kMargin, form.Places().rows[0].control.left);
}

TEST(FormLayout, NameStandsBelowTheLabelAtTheHintsLine) {
    Form form;
    FormRow row = Line(u"Ordner");
    row.name = u"DBPath";
    row.hint = u"Ordner der Datenbank";
    form.Add(row);
    const RowPlace place = form.Places().rows[0];
    EXPECT_EQ(kMargin, place.name.left);
    EXPECT_EQ(kMargin + kControl + 2, place.name.top);
    EXPECT_EQ(place.hint.top, place.name.top);
    EXPECT_EQ(place.control.left, place.hint.left);
}

TEST(FormLayout, NoteEndsAtTheRightOfTheHintsLine) {
    Form form;
    FormRow row = Line(u"Ordner");
    row.hint = u"Ordner der Datenbank";
    form.Add(row).note = u"noch 61 von 100 Zeichen";
    const RowPlace place = form.Places().rows[0];
    EXPECT_EQ(kWidth - kMargin, place.note.Right());
    EXPECT_EQ(place.hint.top, place.note.top);
    EXPECT_LE(place.hint.Right(), place.note.left);
    EXPECT_GE(place.note.width, 23 * 5);
}

TEST(FormLayout, NothingMovesWhenAMessageTakesThePlaceOfTheHint) {
    Form form;
    FormRow row = Line(u"Ordner");
    row.hint = u"Ordner der Datenbank";
    form.Add(row).note = u"noch 61 von 100 Zeichen";
    form.Add(Line(u"Name"));
    const FormPlaces before = form.Places();
    form.states[0].message = u"Zu lang";
    const FormPlaces after = form.Places();
    EXPECT_EQ(before.rows[0].control, after.rows[0].control);
    EXPECT_EQ(before.rows[0].note, after.rows[0].note);
    EXPECT_EQ(before.rows[1].control, after.rows[1].control);
    EXPECT_EQ(before.height, after.height);
}

TEST(FormLayout, NothingMovesWhenAMessageComesToARowWithoutHint) {
    for (const RowKind kind :
         {RowKind::Line, RowKind::Secret, RowKind::Lines, RowKind::Choice, RowKind::List}) {
        Form form;
        form.Add({.kind = kind, .label = u"Ordner", .buttons = {{2, u"..."}}});
        const int before = form.Places().height;
        form.states[0].message = u"Fehlt";
        EXPECT_EQ(before, form.Places().height) << static_cast<int>(kind);
    }
}

TEST(FormLayout, MessageStandsBesideItsIcon) {
    Form form;
    form.Add(Line(u"Ordner")).message = u"Zu lang";
    const RowPlace place = form.Places().rows[0];
    EXPECT_EQ(place.control.left, place.icon.left);
    EXPECT_EQ(16, place.icon.width);
    EXPECT_EQ(place.icon.Right() + 4, place.hint.left);
}

TEST(FormLayout, ShortMessageKeepsTheHeightOfALongHint) {
    Form form;
    FormRow row = Line(u"Ordner");
    row.hint = std::u16string(90, u'x') + u' ' + std::u16string(90, u'y');
    form.Add(row);
    const int before = form.Places().height;
    form.states[0].message = u"Fehlt";
    EXPECT_EQ(before, form.Places().height);
}

TEST(FormLayout, LongMessageIsBroken) {
    Form form;
    form.Add(Line(u"Ordner")).message = std::u16string(90, u'x') + u' ' + std::u16string(90, u'y');
    form.Add(Line(u"Name"));
    const FormPlaces places = form.Places();
    EXPECT_EQ(2 * 11, places.rows[0].hint.height);
    EXPECT_GT(places.rows[1].control.top, places.rows[0].hint.Bottom());
}

TEST(FormLayout, HiddenRowTakesNoRoom) {
    Form form;
    form.Add(Line(u"Ordner"));
    const int before = form.Places().height;
    form.Add(Line(u"Name")).visible = false;
    const FormPlaces places = form.Places();
    EXPECT_EQ(before, places.height);
    EXPECT_FALSE(places.rows[1].visible);
    EXPECT_TRUE(Parts(places.rows[1]).empty());
}

TEST(FormLayout, RowThatGrowsTakesTheHeightThatIsLeft) {
    Form form;
    form.Add({.kind = RowKind::List, .grows = true});
    form.Add(Line(u"Ordner"));
    const FormPlaces small = form.Places({kWidth, 0});
    const FormPlaces large = form.Places({kWidth, small.height + 100});
    EXPECT_EQ(small.rows[0].control.height + 100, large.rows[0].control.height);
    EXPECT_EQ(small.rows[1].control.top + 100, large.rows[1].control.top);
    EXPECT_EQ(small.height + 100, large.height);
}

TEST(FormLayout, RowsThatGrowShareTheHeightUnlessTheyAreHidden) {
    Form form;
    for (int i = 0; i < 3; ++i) {
        form.Add({.kind = RowKind::Output, .grows = true});
    }
    form.states[2].visible = false;
    const FormPlaces small = form.Places({kWidth, 0});
    const FormPlaces large = form.Places({kWidth, small.height + 100});
    EXPECT_EQ(small.rows[0].control.height + 50, large.rows[0].control.height);
    EXPECT_EQ(small.rows[1].control.height + 50, large.rows[1].control.height);
}

TEST(FormLayout, RowKeepsItsHeightWhereThereIsNoneLeft) {
    Form form;
    form.Add({.kind = RowKind::List, .lines = 4, .grows = true});
    EXPECT_EQ(5 * (kLine + 4) + 8, form.Places({kWidth, 20}).rows[0].control.height);
}

TEST(FormLayout, LinesAndOutputAreAsHighAsTheirLines) {
    Form form;
    form.Add({.kind = RowKind::Lines, .label = u"Text", .lines = 4});
    form.Add({.kind = RowKind::Output, .lines = 6});
    const FormPlaces places = form.Places();
    EXPECT_EQ(4 * kLine + 8, places.rows[0].control.height);
    EXPECT_EQ(6 * kLine + 8 + 20, places.rows[1].control.height);
}

TEST(FormLayout, ControlIsAsWideAsItsCharacters) {
    Form form;
    FormRow row = Line(u"Name");
    row.chars = 20;
    row.buttons = {{2, u"..."}};
    form.Add(row);
    const RowPlace place = form.Places().rows[0];
    EXPECT_EQ(20 * 6 + 14, place.control.width);
    EXPECT_EQ(place.control.Right() + 6, place.buttons[0].left);
}

TEST(FormLayout, ControlIsNotWiderThanTheForm) {
    Form form;
    FormRow row = Line(u"Name");
    row.chars = 500;
    form.Add(row);
    EXPECT_EQ(kWidth - kMargin, form.Places().rows[0].control.Right());
}

TEST(FormLayout, SecretHasAButtonWithRoomForBothCaptions) {
    Form form;
    form.Add({.kind = RowKind::Secret, .label = u"Kennwort"});
    const RowPlace place = form.Places().rows[0];
    ASSERT_EQ(1U, place.buttons.size());
    EXPECT_EQ(9 * 6 + 14, place.buttons[0].width);
}

TEST(FormLayout, ListTakesTheWholeWidthBelowItsLabel) {
    Form form;
    form.Add(Line(u"Ordner"));
    form.Add({.kind = RowKind::List, .label = u"&Schlüssel", .name = u"DBKeyList"});
    const RowPlace place = form.Places().rows[1];
    EXPECT_EQ(kMargin, place.label.left);
    EXPECT_EQ(place.label.Right() + 6, place.name.left);
    EXPECT_EQ(place.label.Bottom(), place.name.Bottom());
    EXPECT_EQ(kMargin, place.control.left);
    EXPECT_EQ(kWidth - kMargin, place.control.Right());
    EXPECT_EQ(place.label.Bottom() + 4, place.control.top);
}

TEST(FormLayout, ButtonsOfAListStandBelowItAndItsHintBelowThem) {
    Form form;
    form.Add({.kind = RowKind::List, .hint = u"Der erste gilt", .buttons = {{1, u"Neu"}}});
    const RowPlace place = form.Places().rows[0];
    EXPECT_EQ(place.control.Bottom() + 6, place.buttons[0].top);
    EXPECT_EQ(75, place.buttons[0].width);
    EXPECT_EQ(place.buttons[0].Bottom() + 2, place.hint.top);
}

TEST(FormLayout, ButtonsGoOnInTheNextLineWhenThereIsNoRoom) {
    Form form;
    form.Add({.kind = RowKind::Buttons});
    form.rows[0].buttons.assign(9, {1, u"Auf gespeicherten Wert"});
    const RowPlace place = form.Places().rows[0];
    EXPECT_EQ(place.buttons[0].top, place.buttons[2].top);
    EXPECT_EQ(kMargin, place.buttons[3].left);
    EXPECT_EQ(place.buttons[0].Bottom() + 6, place.buttons[3].top);
}

TEST(FormLayout, OptionsStandCloserToEachOtherThanRows) {
    Form form;
    form.Add({.kind = RowKind::Radio, .label = u"eins"});
    form.Add({.kind = RowKind::Radio, .label = u"zwei"});
    form.Add({.kind = RowKind::Text, .label = u"Text"});
    const FormPlaces places = form.Places();
    EXPECT_EQ(4, places.rows[1].control.top - places.rows[0].control.Bottom());
    EXPECT_EQ(7, places.rows[2].control.top - places.rows[1].control.Bottom());
}

TEST(FormLayout, NameOfACheckBoxStandsInTheColumnOfLabels) {
    Form form;
    form.Add({.kind = RowKind::Check, .label = u"Exklusiv", .name = u"Exclusive"});
    const RowPlace place = form.Places().rows[0];
    EXPECT_EQ(kMargin, place.name.left);
    EXPECT_EQ(kMargin + 9 * 5 + 2 + 10, place.control.left);
}

TEST(FormLayout, TextTellsTheStateInPlaceOfItsLabel) {
    Form form;
    form.Add({.kind = RowKind::Text, .label = u"kurz"}).text =
        std::u16string(90, u'x') + u' ' + std::u16string(90, u'y');
    EXPECT_EQ(2 * kLine, form.Places().rows[0].control.height);
}

TEST(FormLayout, EverythingIsScaledAlike) {
    Form form;
    FormRow row = Line(u"Ordner");
    row.name = u"DBPath";
    row.hint = u"Ordner der Datenbank";
    row.buttons = {{2, u"..."}};
    form.Add(row).note = u"noch 61 Zeichen";
    form.Add({.kind = RowKind::Check, .label = u"Exklusiv"});
    const FormPlaces normal = form.Places();
    const FormPlaces large = form.Places({2 * kWidth}, FakeMeasure(200));
    EXPECT_EQ(2 * normal.height, large.height);
    for (std::size_t i = 0; i < normal.rows.size(); ++i) {
        std::vector<FormRect> expected = Parts(normal.rows[i]);
        for (FormRect& part : expected) {
            part = {2 * part.left, 2 * part.top, 2 * part.width, 2 * part.height};
        }
        EXPECT_EQ(expected, Parts(large.rows[i]));
    }
}

/// Forms as they may come, with texts of any length.
class RandomForms {
public:
    explicit RandomForms(unsigned seed) : random_(seed) {}

    Form Next() {
        Form form;
        for (int i = Number(1, 12); i > 0; --i) {
            FormRow row;
            row.kind = static_cast<RowKind>(Number(0, static_cast<int>(RowKind::Buttons)));
            row.id = i;
            row.label = Words(row.kind == RowKind::Text ? 30 : 6);
            row.name = Number(0, 1) == 0 ? u"" : u"MsgDatabaseNotFound";
            row.hint = Number(0, 1) == 0 ? u"" : Words(20);
            row.indent = Number(0, 2);
            row.chars = Number(0, 1) * Number(1, 60);
            row.lines = Number(0, 6);
            row.grows = Number(0, 3) == 0;
            for (int button = Number(0, 5); button > 0; --button) {
                const bool beside = row.kind == RowKind::Line || row.kind == RowKind::Choice;
                row.buttons.push_back({100, beside ? u"..." : Words(0)});
                if (beside) {
                    break;
                }
            }
            if (row.kind == RowKind::Secret || row.kind == RowKind::Lines ||
                row.kind == RowKind::Check || row.kind == RowKind::Radio ||
                row.kind == RowKind::Heading || row.kind == RowKind::Text) {
                row.buttons.clear();
            }
            RowState& state = form.Add(row);
            state.visible = Number(0, 5) > 0;
            state.message = Number(0, 3) == 0 ? Words(20) : u"";
            state.note = Number(0, 1) == 0 ? u"" : u"noch 61 von 100 Zeichen";
        }
        return form;
    }

    int Number(int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random_);
    }

private:
    std::u16string Words(int most) {
        static const std::vector<std::u16string> kWords = {u"Arbeitsgruppeninformationsdatei",
                                                           u"&Datenbankverzeichnis",
                                                           u"Registrierungsschlüssel",
                                                           u"Kompatibilitätseinstellungen",
                                                           u"der",
                                                           u"für",
                                                           u"&Ordner",
                                                           u"in",
                                                           u"Startbildanzeigedauer"};
        std::u16string words;
        for (int i = Number(0, most); i >= 0; --i) {
            text::AppendWithSeparator(
                words,
                kWords[static_cast<std::size_t>(Number(0, static_cast<int>(kWords.size()) - 1))],
                u" ");
        }
        return words;
    }

    std::mt19937 random_;
};

TEST(FormLayout, NothingOverlapsOrLeavesTheForm) {
    RandomForms forms(1);
    for (int run = 0; run < 2000; ++run) {
        Form form = forms.Next();
        const FakeMeasure measure(forms.Number(100, 250));
        const FormSpace space = {measure.Scaled(forms.Number(560, 1000)),
                                 measure.Scaled(forms.Number(0, 1200))};
        const FormPlaces places = form.Places(space, measure);
        std::vector<FormRect> all;
        for (const RowPlace& place : places.rows) {
            for (const FormRect& part : Parts(place)) {
                ASSERT_GE(part.left, 0) << run;
                ASSERT_LE(part.Right(), space.width) << run;
                ASSERT_LE(part.Bottom(), places.height) << run;
                for (const FormRect& other : all) {
                    ASSERT_FALSE(Overlap(part, other)) << run;
                }
                all.push_back(part);
            }
        }
    }
}

TEST(FormLayout, NoTextIsCut) {
    RandomForms forms(2);
    for (int run = 0; run < 2000; ++run) {
        Form form = forms.Next();
        const FakeMeasure measure(forms.Number(100, 250));
        const FormPlaces places = form.Places({measure.Scaled(forms.Number(560, 1000))}, measure);
        const auto fits = [&](FormFont font, const std::u16string& text, const FormRect& place,
                              int around) {
            for (const std::u16string_view word : text::Split(text, u' ')) {
                ASSERT_LE(measure.TextWidth(font, word), place.width - around) << run;
            }
            ASSERT_LE(measure.TextHeight(font, text, place.width - around), place.height) << run;
        };
        for (std::size_t i = 0; i < form.rows.size(); ++i) {
            const FormRow& row = form.rows[i];
            const RowState& state = form.states[i];
            const RowPlace& place = places.rows[i];
            if (!place.label.IsEmpty()) {
                fits(FormFont::Normal, WithoutAccessKey(row.label), place.label, 0);
            }
            if (!place.name.IsEmpty()) {
                fits(FormFont::Small, row.name, place.name, 0);
            }
            if (!place.note.IsEmpty()) {
                fits(FormFont::Small, state.note, place.note, 0);
            }
            if (!place.hint.IsEmpty()) {
                const std::u16string& text = state.message.empty() ? row.hint : state.message;
                ASSERT_LE(measure.TextHeight(FormFont::Small, text, place.hint.width),
                          place.hint.height);
            }
            if (row.kind == RowKind::Check || row.kind == RowKind::Radio) {
                if (state.visible) {
                    fits(FormFont::Normal, WithoutAccessKey(row.label), place.control,
                         measure.Scaled(17));
                }
            }
            for (std::size_t button = 0; button < row.buttons.size() && state.visible; ++button) {
                fits(FormFont::Normal, WithoutAccessKey(row.buttons[button].caption),
                     place.buttons[button], 0);
            }
        }
    }
}

}  // namespace
}  // namespace tarvex
