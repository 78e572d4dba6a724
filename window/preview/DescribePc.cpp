#include "window/preview/DescribePc.h"

#include "launch/PathHelpers.h"
#include "platform/ProgramInfo.h"
#include "simulation/CollectedFiles.h"
#include "simulation/StoredConstants.h"
#include "text/Text.h"
#include "window/form/BoxTexts.h"

namespace tarvex {
namespace {

/// Names of the files that are there already.
std::u16string NamesThere(const FileStore& store, const std::vector<CollectedFile>& files,
                          std::u16string_view folder) {
    std::u16string names;
    for (const CollectedFile& file : files) {
        if (!CheckOutput(store, CollectedPath(file, folder), {}).empty()) {
            text::AppendWithSeparator(names, file.name, u", ");
        }
    }
    return names;
}

}  // namespace

std::u16string DescribeThisPc(const PreviewRequest& request, const DescribeServices& services) {
    UserDialogs& dialogs = services.dialogs;
    const std::u16string name(FileNamePart(request.program));
    const auto fail = [&dialogs](const Problems& problems) {
        TellUser(dialogs, BoxIcon::Error,
                 u"Die Beschreibung ist nicht geschrieben.\n\n" + ProblemList(problems, {}));
        return std::u16string();
    };
    if (services.thisPc == nullptr) {
        return fail({{{}, 0, {}, u"Eine Beschreibung dieses PCs braucht Windows."}});
    }
    Problems problems;
    const StoredConstants constants =
        StoredConstants::FromSettings(request.settings, {}, services.codec, problems);
    if (!problems.empty()) {
        return fail(problems);
    }
    const std::u16string folder =
        dialogs.ChooseFolder(u"Ordner für die Beschreibung dieses PCs wählen",
                             MakeProgramInfo(request.program, {}).folder);
    if (folder.empty()) {
        return {};
    }
    const std::vector<CollectedFile> files = CollectPc(*services.thisPc, constants, request.program,
                                                       services.codec, KnownAccessEntries());
    const OutputRules replace{.force = true};
    problems = CheckCollected(services.store, files, folder, replace);
    if (!problems.empty()) {
        return fail(problems);
    }
    const std::u16string there = NamesThere(services.store, files, folder);
    if (!there.empty() &&
        !UserAgrees(dialogs, BoxIcon::Warning,
                    u"Im Ordner " + folder + u" gibt es schon: " + there + u".", u"&Ersetzen")) {
        return {};
    }
    Problems notes;
    problems = WriteCollected(services.store, files, folder,
                              there.empty() ? OutputRules{} : replace, notes);
    if (!problems.empty()) {
        return fail(problems);
    }
    std::u16string path = CollectedPath(files.front(), folder);
    std::u16string done = path + u": Die Beschreibung ist geschrieben.\n\nSie enthält, was " +
                          name +
                          u" mit den Einstellungen dieses Fensters hier vorfindet, und nichts "
                          u"anderes.";
    if (!notes.empty()) {
        done += u"\n\n" + ProblemList(notes, {});
    }
    TellUser(dialogs, BoxIcon::Information, done);
    return path;
}

}  // namespace tarvex
