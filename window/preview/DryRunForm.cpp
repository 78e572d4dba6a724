#include "window/preview/DryRunForm.h"

#include "text/Text.h"

namespace tarvex {

DryRunForm::DryRunForm(const PreviewResult& preview, UserDialogs& dialogs)
    : preview_(preview), dialogs_(dialogs) {
    rows_ = {
        {.kind = RowKind::Output,
         .id = kTextRow,
         .label = u"&Protokoll",
         .lines = 20,
         .grows = true},
        {.kind = RowKind::Output, .id = kRemarksRow, .label = u"&Hinweise", .lines = 4},
        {.kind = RowKind::Buttons, .label = {}, .buttons = {{kCopyButton, u"&Kopieren"}}},
    };
}

RowState DryRunForm::State(std::int32_t id) const {
    RowState state;
    if (id == kTextRow) {
        // Without a launch there is a reason alone.
        state.text = preview_.text.empty() ? preview_.commandLine : preview_.text;
        return state;
    }
    state.visible = !preview_.remarks.empty();
    for (const std::u16string& remark : preview_.remarks) {
        text::AppendWithSeparator(state.text, remark, text::kLineBreak);
    }
    return state;
}

void DryRunForm::Press(std::int32_t buttonId) {
    if (buttonId == kCopyButton) {
        dialogs_.CopyToClipboard(State(kTextRow).text);
    }
}

void ShowDryRun(UserDialogs& dialogs, const PreviewResult& preview, std::u16string_view program,
                std::u16string_view pc) {
    DryRunForm form(preview, dialogs);
    dialogs.ShowForm(
        form, {.title = u"Probelauf von " + std::u16string(program) + u" auf " + std::u16string(pc),
               .ok = {},
               .cancel = u"Schließen",
               .large = true});
}

}  // namespace tarvex
