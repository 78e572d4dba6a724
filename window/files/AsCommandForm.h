#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "window/files/FileServices.h"
#include "window/form/Form.h"

namespace tarvex {

/// Shows the call of the command line that makes the same launcher, and exports the settings file
/// that it reads.
class AsCommandForm : public FormModel {
public:
    static constexpr std::int32_t kFile = 100;
    static constexpr std::int32_t kChooseFile = 101;
    static constexpr std::int32_t kTemplate = 102;
    static constexpr std::int32_t kChooseTemplate = 103;
    static constexpr std::int32_t kSecrets = 104;
    static constexpr std::int32_t kCommand = 105;
    static constexpr std::int32_t kCopy = 107;

    /// `values` are those of the document, `source` is the template when it has none. Services and
    /// document outlive the form.
    AsCommandForm(const FileServices& services, const Document& document, Settings values,
                  std::u16string_view source);

    /// The command as it stands in a batch file.
    std::u16string Command() const;

    /// What became of the export.
    FileResult TakeResult() { return std::move(result_); }

    const std::vector<FormRow>& Rows() const override { return rows_; }
    RowState State(std::int32_t id) const override;
    void SetText(std::int32_t id, std::u16string_view text) override;
    void SetChecked(std::int32_t /*id*/, bool checked) override { withSecrets_ = checked; }
    void Press(std::int32_t buttonId) override;
    bool Accept() override;

private:
    std::u16string FileProblem() const;
    void CheckTemplate();

    const FileServices& services_;
    const Document& document_;
    Settings values_;
    std::vector<FormRow> rows_;
    std::u16string file_;
    std::u16string template_;
    std::u16string templateProblem_;
    bool withSecrets_ = false;
    FileResult result_;
};

/// An argument as it stands in a batch file of cmd.exe: in quotation marks when it holds anything
/// that cmd.exe or the program would take for more than a character, "%" twice.
std::u16string BatchArgument(std::u16string_view argument);

}  // namespace tarvex
