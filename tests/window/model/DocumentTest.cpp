#include "window/model/Document.h"

#include <gtest/gtest.h>

#include "branding/BrandFields.h"
#include "text/TextCodec1252.h"

namespace tarvex {
namespace {

class DocumentTest : public testing::Test {
protected:
    static Settings Saved() {
        Settings settings;
        settings.Set(kFieldAppName, u"Kunden");
        return settings;
    }

    TextCodec1252 codec_;
    Document document_{{u"C:\\Prog\\Kunden.exe", {}, false, {}}, Saved(), codec_};
};

TEST_F(DocumentTest, FieldShowsTheSavedValueUntilItIsEdited) {
    EXPECT_EQ(document_.Text(kFieldAppName), u"Kunden");
    EXPECT_FALSE(document_.IsDirty());
    document_.SetText(kFieldAppName, u"Artikel");
    EXPECT_EQ(document_.Text(kFieldAppName), u"Artikel");
    EXPECT_TRUE(document_.IsDirty());
}

TEST_F(DocumentTest, TypingOnIsOneStepToUndo) {
    document_.SetText(kFieldAppName, u"K", true);
    document_.SetText(kFieldAppName, u"Ku", true);
    document_.Undo(kFieldAppName);
    EXPECT_EQ(document_.Text(kFieldAppName), u"Kunden");
    EXPECT_FALSE(document_.CanUndo(kFieldAppName));
}

}  // namespace
}  // namespace tarvex
