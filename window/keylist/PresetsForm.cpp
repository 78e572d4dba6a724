#include "window/keylist/PresetsForm.h"

#include <algorithm>

#include "text/Text.h"
#include "window/keylist/KeyListField.h"

namespace tarvex {

PresetsForm::PresetsForm(KeyListEdit& edit) : edit_(edit) {
    rows_ = {{.kind = RowKind::List,
              .id = kListRow,
              .label = u"&Bekannte Orte",
              .hint = u"Hier trägt die Installation von Office ein, wo Access liegt; der neueste "
                      u"Ort zuerst.",
              .lines = 10,
              .grows = true,
              .buttons = {{kTakeButton, u"Über&nehmen", {}, ButtonKey::Enter},
                          {kTakeAllButton, u"&Alle übernehmen"}},
              .columns = {u"In der Liste", u"Office", u"Access", u"Eintrag"}},
             {.kind = RowKind::Text, .id = kStateRow, .label = {}}};
}

RowState PresetsForm::State(std::int32_t id) const {
    RowState state;
    const std::size_t room = edit_.Room();
    const std::vector<std::u16string> missing = Missing();
    if (id == kStateRow) {
        if (room == 0) {
            state.text = u"Die Schlüsselliste ist voll.";
        } else {
            state.text = u"Freie Felder in der Schlüsselliste: " +
                         text::Decimal(static_cast<std::int64_t>(room)) + u" von " +
                         text::Decimal(KeyListFields::kCount) + u".";
        }
        return state;
    }
    for (const AccessPreset& preset : AccessPresetFields()) {
        state.items.push_back(
            {IsTaken(preset) ? u"ja" : u"", preset.version, preset.meaning, preset.entry});
    }
    state.selected = selected_;
    const bool canTake = room > 0 && selected_ >= 0 &&
                         !IsTaken(AccessPresetFields().at(static_cast<std::size_t>(selected_)));
    if (!canTake) {
        state.disabledButtons.push_back(kTakeButton);
    }
    if (room == 0 || missing.empty()) {
        state.disabledButtons.push_back(kTakeAllButton);
    }
    return state;
}

void PresetsForm::Select(std::int32_t id, std::int32_t index) {
    if (id == kListRow) {
        selected_ = index;
    }
}

void PresetsForm::Press(std::int32_t buttonId) {
    const std::vector<std::int32_t> disabled = State(kListRow).disabledButtons;
    if (std::find(disabled.begin(), disabled.end(), buttonId) != disabled.end()) {
        return;
    }
    if (buttonId == kTakeAllButton) {
        edit_.Add(Missing());
    } else if (buttonId == kTakeButton) {
        const auto& presets = AccessPresetFields();
        edit_.Add({presets.at(static_cast<std::size_t>(selected_)).entry});
        selected_ = std::min(selected_ + 1, static_cast<std::int32_t>(presets.size()) - 1);
    }
}

/// Wherever its entries stand, also in fields of their own.
bool PresetsForm::IsTaken(const AccessPreset& preset) const {
    const std::vector<KeyListEdit::Line> lines = edit_.Lines();
    const std::vector<std::u16string> entries = EntriesOfField(kAccRegList, preset.entry);
    return std::all_of(entries.begin(), entries.end(), [&lines](const std::u16string& entry) {
        return std::any_of(lines.begin(), lines.end(), [&entry](const KeyListEdit::Line& line) {
            return text::EqualsIgnoreCase(text::Trim(line.entry), entry);
        });
    });
}

std::vector<std::u16string> PresetsForm::Missing() const {
    std::vector<std::u16string> missing;
    for (const AccessPreset& preset : AccessPresetFields()) {
        if (!IsTaken(preset)) {
            missing.push_back(preset.entry);
        }
    }
    return missing;
}

void EnterKnownAccessPlaces(Document& document) {
    Settings settings;
    for (std::int32_t position = 1; position < KeyListFields::kCount; ++position) {
        settings.Set(kAccRegList.Field(position),
                     AccessPresetFields().at(static_cast<std::size_t>(position) - 1).entry);
    }
    document.Enter(settings);
}

}  // namespace tarvex
