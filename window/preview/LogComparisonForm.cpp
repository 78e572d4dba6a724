#include "window/preview/LogComparisonForm.h"

#include <algorithm>

#include "configurator/FileTexts.h"
#include "configurator/TextFile.h"
#include "launch/PathHelpers.h"
#include "text/Text.h"
#include "window/form/BoxTexts.h"

namespace tarvex {
namespace {

std::u16string_view DifferenceText(const ComparedLine& line) {
    if (line.second == 0) {
        return u"nur beim Kunden";
    }
    if (line.first == 0) {
        return u"nur in der Vorschau";
    }
    return line.Differs() ? u"anders" : u"";
}

}  // namespace

LogComparisonForm::LogComparisonForm(std::u16string_view log, std::u16string_view preview,
                                     std::u16string_view pc)
    : lines_(CompareTexts(log, preview)), first_(Difference(-1, 1)), selected_(first_) {
    const std::u16string previewName = u"Vorschau auf " + std::u16string(pc);
    rows_ = {
        {.kind = RowKind::Text, .id = kVerdictRow, .label = {}},
        {.kind = RowKind::List,
         .id = kListRow,
         .label = u"&Zeilen",
         .lines = 16,
         .grows = true,
         .buttons = {{kNextButton, u"&Nächster Unterschied"},
                     {kPreviousButton, u"&Voriger Unterschied"}},
         .columns = {u"Zeile", u"Unterschied", u"Protokoll des Kunden", previewName}},
        {.kind = RowKind::Output, .id = kLogRow, .label = u"&Protokoll des Kunden", .lines = 2},
        {.kind = RowKind::Output, .id = kPreviewRow, .label = previewName, .lines = 2},
    };
}

RowState LogComparisonForm::State(std::int32_t id) const {
    RowState state;
    const bool hasLine = selected_ >= 0;
    const ComparedLine line =
        hasLine ? lines_.at(static_cast<std::size_t>(selected_)) : ComparedLine();
    switch (id) {
        case kVerdictRow:
            state.text = Verdict();
            break;
        case kLogRow:
            state.text = line.firstText;
            break;
        case kPreviewRow:
            state.text = line.secondText;
            break;
        default:
            for (const ComparedLine& one : lines_) {
                state.items.push_back({one.first == 0 ? u"" : text::Decimal(one.first),
                                       std::u16string(DifferenceText(one)), one.firstText,
                                       one.secondText});
            }
            state.selected = selected_;
            if (Difference(selected_, 1) < 0) {
                state.disabledButtons.push_back(kNextButton);
            }
            if (Difference(selected_, -1) < 0) {
                state.disabledButtons.push_back(kPreviousButton);
            }
            break;
    }
    return state;
}

void LogComparisonForm::Select(std::int32_t id, std::int32_t index) {
    if (id == kListRow) {
        selected_ = index;
    }
}

void LogComparisonForm::Press(std::int32_t buttonId) {
    const std::int32_t found = Difference(selected_, buttonId == kNextButton ? 1 : -1);
    if (found >= 0) {
        selected_ = found;
    }
}

std::u16string LogComparisonForm::Verdict() const {
    if (first_ < 0) {
        return u"Kein Unterschied.";
    }
    const ComparedLine& line = lines_.at(static_cast<std::size_t>(first_));
    if (line.first > 0) {
        return u"Erster Unterschied in Zeile " + text::Decimal(line.first) + u".";
    }
    // Lines up to there are in both.
    return first_ == 0 ? u"Erster Unterschied vor Zeile 1: Dort fehlen Zeilen im Protokoll."
                       : u"Erster Unterschied nach Zeile " + text::Decimal(first_) +
                             u": Dort fehlen Zeilen im Protokoll.";
}

/// The next line that differs, in one direction; -1: none.
std::int32_t LogComparisonForm::Difference(std::int32_t from, std::int32_t step) const {
    const auto count = static_cast<std::int32_t>(lines_.size());
    for (std::int32_t i = from + step; i >= 0 && i < count; i += step) {
        if (lines_[static_cast<std::size_t>(i)].Differs()) {
            return i;
        }
    }
    return -1;
}

void CompareWithLog(UserDialogs& dialogs, FileStore& store, const TextCodec& codec,
                    std::u16string_view folder, std::u16string_view preview,
                    std::u16string_view pc) {
    const std::u16string path =
        dialogs.ChooseFile({.title = u"Protokoll des Kunden öffnen",
                            .folder = std::u16string(folder),
                            .filter = u"Protokolle|*.err;*.log;*.txt|Alle Dateien|*.*"});
    if (path.empty()) {
        return;
    }
    std::u16string log;
    try {
        log = DecodeSavedText(store.ReadAll(path), codec);
    } catch (...) {
        TellUser(dialogs, BoxIcon::Error, path + u":\n" + CaughtText());
        return;
    }
    LogComparisonForm form(log, preview, pc);
    dialogs.ShowForm(form,
                     {.title = u"Mit Protokoll vergleichen - " + std::u16string(FileNamePart(path)),
                      .ok = {},
                      .cancel = u"Schließen",
                      .large = true});
}

}  // namespace tarvex
