#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "window/files/FileCommands.h"
#include "window/form/Form.h"

namespace tarvex {

/// What the window shows while it has no document. It lists the last files as they were when it was
/// made, but for those that the user takes off the list here.
class StartPageForm : public FormModel {
public:
    static constexpr std::int32_t kButtons = 100;
    static constexpr std::int32_t kNew = 101;
    static constexpr std::int32_t kOpen = 102;
    static constexpr std::int32_t kImport = 103;
    static constexpr std::int32_t kRecent = 104;
    static constexpr std::int32_t kOpenRecent = 105;
    static constexpr std::int32_t kForget = 106;
    static constexpr std::int32_t kNothingYet = 107;

    /// `finished` gets the result of each command; a document in it takes the place of this page,
    /// which must live until Press has returned. `commands` is not owned and outlives the form.
    StartPageForm(FileCommands& commands, std::function<void(FileResult)> finished);

    const std::vector<FormRow>& Rows() const override { return rows_; }
    RowState State(std::int32_t id) const override;
    void Select(std::int32_t /*id*/, std::int32_t index) override { selected_ = index; }
    void Press(std::int32_t buttonId) override;

private:
    /// Full path of the chosen file; empty when none is.
    std::u16string Chosen() const;

    FileCommands& commands_;
    std::function<void(FileResult)> finished_;
    std::vector<std::u16string> paths_;  // of the last files
    std::vector<FormRow> rows_;
    std::int32_t selected_ = 0;
};

}  // namespace tarvex
