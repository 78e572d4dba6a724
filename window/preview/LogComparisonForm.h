#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileStore.h"
#include "text/TextCodec.h"
#include "window/form/Form.h"
#include "window/form/UserDialogs.h"
#include "window/preview/LogComparison.h"

namespace tarvex {

/// A customer's log and the preview, line beside line, the first difference chosen. Below the list
/// the chosen line stands whole.
class LogComparisonForm : public FormModel {
public:
    static constexpr std::int32_t kVerdictRow = 100;
    static constexpr std::int32_t kListRow = 101;
    static constexpr std::int32_t kLogRow = 102;      ///< the chosen line of the log
    static constexpr std::int32_t kPreviewRow = 103;  ///< the chosen line of the preview
    static constexpr std::int32_t kNextButton = 110;
    static constexpr std::int32_t kPreviousButton = 111;

    /// `pc` is the name of the PC that the preview is about, as PcChoice::Name gives it.
    LogComparisonForm(std::u16string_view log, std::u16string_view preview, std::u16string_view pc);

    const std::vector<FormRow>& Rows() const override { return rows_; }
    RowState State(std::int32_t id) const override;
    void Select(std::int32_t id, std::int32_t index) override;
    void Press(std::int32_t buttonId) override;

private:
    std::u16string Verdict() const;
    std::int32_t Difference(std::int32_t from, std::int32_t step) const;

    std::vector<ComparedLine> lines_;
    std::vector<FormRow> rows_;
    std::int32_t first_;  // the first line that differs; -1: none
    std::int32_t selected_;
};

/// Asks for the text that a customer saved from the launcher's log window and compares it with the
/// text of the preview. `folder` is where the question starts, `codec` the code page of a log that
/// tells none itself.
void CompareWithLog(UserDialogs& dialogs, FileStore& store, const TextCodec& codec,
                    std::u16string_view folder, std::u16string_view preview,
                    std::u16string_view pc);

}  // namespace tarvex
