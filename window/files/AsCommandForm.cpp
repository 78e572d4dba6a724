#include "window/files/AsCommandForm.h"

#include <utility>

#include "configurator/SettingsExport.h"
#include "launch/PathHelpers.h"
#include "text/Text.h"
#include "window/document/FileNames.h"
#include "window/files/NewLauncherForm.h"
#include "window/files/SettingsWriting.h"

namespace tarvex {
namespace {

std::vector<FormRow> MakeRows() {
    return {
        {.kind = RowKind::Line,
         .id = AsCommandForm::kFile,
         .label = u"&Einstellungsdatei",
         .hint = u"Wird mit „Exportieren“ geschrieben.",
         .buttons = {{AsCommandForm::kChooseFile, u"...", u"Einstellungsdatei wählen"}}},
        {.kind = RowKind::Line,
         .id = AsCommandForm::kTemplate,
         .label = u"&Vorlage",
         .hint = u"Ein Startprogramm, das noch nicht konfiguriert ist.",
         .buttons = {{AsCommandForm::kChooseTemplate, u"...", u"Vorlage wählen"}}},
        {.kind = RowKind::Check,
         .id = AsCommandForm::kSecrets,
         .label = u"&Benutzernamen und Kennwörter mit exportieren",
         .hint = u"Sie stehen lesbar in der Datei. Ohne sie fragt der Befehl danach."},
        {.kind = RowKind::Output,
         .id = AsCommandForm::kCommand,
         .label = u"Be&fehl",
         .hint = u"So geschrieben, wie er in einer Batchdatei (.cmd) steht.",
         .lines = 4,
         .wraps = true,
         .buttons = {{AsCommandForm::kCopy, u"&Kopieren", u"Befehl kopieren"}}},
    };
}

}  // namespace

AsCommandForm::AsCommandForm(const FileServices& services, const Document& document,
                             Settings values, std::u16string_view source)
    : services_(services),
      document_(document),
      values_(std::move(values)),
      rows_(MakeRows()),
      template_(document.IsNew() ? document.File().source : source) {
    const std::u16string& path = document.File().path;
    file_ = JoinPath(FolderPart(path), StemOf(path) + u".ini");
    CheckTemplate();
}

std::u16string AsCommandForm::Command() const {
    const std::u16string& path = document_.File().path;
    std::u16string command = u"tarvexcf brand " +
                             BatchArgument(template_.empty() ? u"tarvex.exe" : template_) + u" " +
                             BatchArgument(path) + u" --settings " + BatchArgument(file_);
    for (const BrandField& field : kBrandFields) {
        if (field.kind == FieldKind::Credential && !withSecrets_ &&
            !values_.Value(field.number).empty()) {
            command += u" --set " + std::u16string(field.name) + u"=-";
        }
    }
    return command + (services_.store.FileExists(path) ? u" --force" : u"");
}

RowState AsCommandForm::State(std::int32_t id) const {
    RowState state;
    switch (id) {
        case kFile:
            state.text = file_;
            state.message = FileProblem();
            break;
        case kTemplate:
            state.text = template_;
            state.message = templateProblem_;
            break;
        case kSecrets:
            state.visible = HasSecrets(values_);
            state.checked = withSecrets_;
            break;
        case kCommand:
            state.text = Command();
            break;
        default:
            break;
    }
    return state;
}

void AsCommandForm::SetText(std::int32_t id, std::u16string_view text) {
    if (id == kFile) {
        file_ = text::Trim(text);
    } else if (id == kTemplate) {
        template_ = text::Trim(text);
        CheckTemplate();
    }
}

void AsCommandForm::Press(std::int32_t buttonId) {
    if (buttonId == kCopy) {
        services_.dialogs.CopyToClipboard(Command());
    } else if (buttonId == kChooseTemplate) {
        const std::u16string path =
            services_.dialogs.ChooseFile({.title = u"Vorlage wählen",
                                          .folder = std::u16string(FolderPart(template_)),
                                          .filter = std::u16string(kLauncherFilter)});
        SetText(kTemplate, path.empty() ? template_ : path);
    } else if (buttonId == kChooseFile) {
        const std::u16string path =
            services_.dialogs.ChooseNewFile({.title = u"Einstellungen exportieren",
                                             .folder = std::u16string(FolderPart(file_)),
                                             .filter = std::u16string(kSettingsFilter),
                                             .name = std::u16string(FileNamePart(file_)),
                                             .extension = u"ini"});
        SetText(kFile, path.empty() ? file_ : path);
    }
}

bool AsCommandForm::Accept() {
    if (!FileProblem().empty()) {
        return false;
    }
    result_ = WriteSettingsFile(services_, document_, values_, file_,
                                withSecrets_ || !HasSecrets(values_));
    return result_.done;
}

std::u16string AsCommandForm::FileProblem() const {
    return IsAbsoluteFolder(file_)
               ? u""
               : u"Bitte den ganzen Pfad angeben, zum Beispiel C:\\Skripte\\Kunden.ini.";
}

void AsCommandForm::CheckTemplate() {
    templateProblem_ = WhyNoTemplate(services_.store, template_);
}

std::u16string BatchArgument(std::u16string_view argument) {
    const bool isPlain =
        !argument.empty() &&
        argument.find_first_of(u" \t\"%&|<>^()[]{}=;,!'+`~@") == std::u16string_view::npos;
    if (isPlain) {
        return std::u16string(argument);
    }
    // The program takes backslashes before a quotation mark in pairs.
    std::size_t backslashes = 0;
    while (backslashes < argument.size() && argument[argument.size() - 1 - backslashes] == u'\\') {
        ++backslashes;
    }
    return u"\"" + text::Replace(argument, u"%", u"%%") + std::u16string(backslashes, u'\\') +
           u"\"";
}

}  // namespace tarvex
