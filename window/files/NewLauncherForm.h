#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileStore.h"
#include "window/form/Form.h"
#include "window/form/UserDialogs.h"

namespace tarvex {

/// Asks from which template a new launcher is made, what it is called and where it will stand.
/// Nothing is written.
class NewLauncherForm : public FormModel {
public:
    static constexpr std::int32_t kTemplate = 100;
    static constexpr std::int32_t kChooseTemplate = 101;
    static constexpr std::int32_t kName = 102;
    static constexpr std::int32_t kFolder = 103;
    static constexpr std::int32_t kChooseFolder = 104;

    /// What the rows begin with; each may be empty.
    struct Start {
        std::u16string source = {};  ///< full path of the template
        std::u16string name = {};    ///< of the new launcher, with or without ".exe"
        std::u16string folder = {};
    };

    /// Neither is owned; both outlive this object.
    NewLauncherForm(FileStore& store, UserDialogs& dialogs, const Start& start);

    /// Full path of the template.
    std::u16string Source() const;

    /// Full path of the launcher that is to be.
    std::u16string Output() const;

    /// The user has agreed that the file, which exists, is replaced.
    bool MayReplace() const { return mayReplace_; }

    const std::vector<FormRow>& Rows() const override { return rows_; }
    RowState State(std::int32_t id) const override;
    /// The first one that is still empty, else the name.
    std::int32_t FirstRow() const override;
    void SetText(std::int32_t id, std::u16string_view text) override;
    void Press(std::int32_t buttonId) override;
    bool Accept() override;

private:
    struct Entry {
        std::u16string text;
        std::u16string problem;
        bool touched = false;  ///< before, nothing is called wrong
    };

    void CheckAll();
    std::u16string NameProblem() const;
    std::u16string FolderProblem() const;
    Entry& Of(std::int32_t id);
    const Entry& Of(std::int32_t id) const;

    FileStore& store_;
    UserDialogs& dialogs_;
    std::vector<FormRow> rows_;
    Entry template_;
    Entry name_;
    Entry folder_;
    bool mayReplace_ = false;
};

/// German, why this full path cannot be that of a template for a new launcher; empty when it can.
std::u16string WhyNoTemplate(FileStore& store, std::u16string_view path);

}  // namespace tarvex
