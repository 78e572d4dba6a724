#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "window/form/Form.h"
#include "window/form/UserDialogs.h"
#include "window/preview/Preview.h"

namespace tarvex {

/// The text of a preview, large, as the launcher's log window shows it, and below it what there is
/// to say of the PC.
class DryRunForm : public FormModel {
public:
    static constexpr std::int32_t kTextRow = 100;
    static constexpr std::int32_t kRemarksRow = 101;
    static constexpr std::int32_t kCopyButton = 110;

    /// Both outlive the form.
    DryRunForm(const PreviewResult& preview, UserDialogs& dialogs);

    const std::vector<FormRow>& Rows() const override { return rows_; }
    RowState State(std::int32_t id) const override;
    void Press(std::int32_t buttonId) override;

private:
    const PreviewResult& preview_;
    UserDialogs& dialogs_;
    std::vector<FormRow> rows_;
};

/// Shows the window of a dry run. `program` is the launcher's file name, `pc` the PC's name as
/// PcChoice::Name gives it.
void ShowDryRun(UserDialogs& dialogs, const PreviewResult& preview, std::u16string_view program,
                std::u16string_view pc);

}  // namespace tarvex
