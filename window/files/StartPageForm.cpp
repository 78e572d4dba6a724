#include "window/files/StartPageForm.h"

#include <utility>

#include "launch/PathHelpers.h"

namespace tarvex {
namespace {

std::vector<FormRow> MakeRows(bool hasFiles) {
    std::vector<FormRow> rows = {
        {.kind = RowKind::Heading, .label = u"Startprogramme für Access-Datenbanken"},
        {.kind = RowKind::Buttons,
         .id = StartPageForm::kButtons,
         .label = {},
         .buttons = {{StartPageForm::kNew, u"&Neues Startprogramm"},
                     {StartPageForm::kOpen, u"Ö&ffnen…"},
                     {StartPageForm::kImport, u"Einstellungsdatei &importieren…"}}},
        {.kind = RowKind::Text, .id = StartPageForm::kNothingYet, .label = {}}};
    // A list takes long to make.
    if (hasFiles) {
        rows.push_back(
            {.kind = RowKind::List,
             .id = StartPageForm::kRecent,
             .label = u"&Zuletzt verwendet",
             .grows = true,
             .buttons =
                 {{StartPageForm::kOpenRecent, u"Öffn&en", u"Zuletzt verwendete Datei öffnen",
                   ButtonKey::Enter},
                  {StartPageForm::kForget, u"Aus der &Liste entfernen", {}, ButtonKey::Delete}},
             .columns = {u"Datei", u"Ordner"}});
    }
    return rows;
}

}  // namespace

StartPageForm::StartPageForm(FileCommands& commands, std::function<void(FileResult)> finished)
    : commands_(commands),
      finished_(std::move(finished)),
      paths_(commands.Recent().Paths()),
      rows_(MakeRows(!paths_.empty())) {}

RowState StartPageForm::State(std::int32_t id) const {
    RowState state;
    if (id == kRecent) {
        state.visible = !paths_.empty();
        for (const std::u16string& path : paths_) {
            state.items.push_back(
                {std::u16string(FileNamePart(path)), std::u16string(FolderPart(path))});
        }
        state.selected = Chosen().empty() ? -1 : selected_;
        if (state.selected < 0) {
            state.disabledButtons = {kOpenRecent, kForget};
        }
    } else if (id == kNothingYet) {
        state.visible = paths_.empty();
        state.text = u"Noch wurde keine Datei verwendet.";
    }
    return state;
}

void StartPageForm::Press(std::int32_t buttonId) {
    const std::u16string chosen = Chosen();
    switch (buttonId) {
        case kNew:
            finished_(commands_.New(nullptr));
            break;
        case kOpen:
            finished_(commands_.ChooseAndOpen(nullptr));
            break;
        case kImport:
            finished_(commands_.ChooseSettingsAndOpen(nullptr));
            break;
        case kOpenRecent:
            if (!chosen.empty()) {
                selected_ = 0;  // where the file goes when it is opened
                finished_(commands_.Open(chosen, nullptr));
            }
            break;
        case kForget:
            commands_.Recent().Remove(chosen);
            paths_ = commands_.Recent().Paths();
            break;
        default:
            break;
    }
}

std::u16string StartPageForm::Chosen() const {
    const auto index = static_cast<std::size_t>(selected_);
    return selected_ >= 0 && index < paths_.size() ? paths_[index] : std::u16string();
}

}  // namespace tarvex
