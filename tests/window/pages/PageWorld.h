#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

#include "tests/support/FakeFileStore.h"
#include "tests/support/FakeUserDialogs.h"
#include "text/TextCodec1252.h"
#include "window/pages/PageForm.h"

namespace tarvex {

/// A page over a document of a launcher in C:\Prog.
class PageWorld : public testing::Test {
protected:
    using Values = std::map<std::int32_t, std::u16string_view>;

    enum PageNumber {
        kApplicationPage,
        kAccessPage,
        kDatabasePage,
        kWorkgroupPage,
        kOptionsPage,
        kPicturePage,
        kErrorsPage,
        kDiagnosisPage,
        kProgramPage
    };

    /// Opens a launcher with these values at that page.
    PageForm& Open(PageNumber page, const Values& values = {}, bool readOnly = false) {
        Settings saved;
        for (const auto& [number, value] : values) {
            saved.Set(number, value);
        }
        return OpenSaved(page, saved, readOnly);
    }

    PageForm& OpenSaved(PageNumber page, const Settings& saved, bool readOnly = false) {
        DocumentFile file{u"C:\\Prog\\Kunden.exe", {}, readOnly, {}};
        if (readOnly) {
            file.whyReadOnly = u"Die Datei ist signiert.";
        }
        document_ = std::make_unique<Document>(file, saved, codec_);
        form_ = std::make_unique<PageForm>(Pages().at(page), *document_, dialogs_, store_, codec_);
        return *form_;
    }

    /// Text of a field of the document, in UTF-8.
    std::string Text(std::int32_t number) const { return text::ToUtf8(document_->Text(number)); }

    std::string Message(std::int32_t row) const { return text::ToUtf8(form_->State(row).message); }
    std::string Note(std::int32_t row) const { return text::ToUtf8(form_->State(row).note); }

    TextCodec1252 codec_;
    FakeBinaryFiles files_;
    FakeFileStore store_{files_};
    FakeUserDialogs dialogs_;
    std::unique_ptr<Document> document_;
    std::unique_ptr<PageForm> form_;
};

}  // namespace tarvex
