#include "configurator/OutputFile.h"

#include "configurator/FileCopy.h"
#include "configurator/FileTexts.h"
#include "text/Text.h"

namespace tarvex {
namespace {

Problems Refusal(std::u16string_view path, std::u16string_view text) {
    return {{std::u16string(path), 0, {}, std::u16string(text)}};
}

bool MayBeReplaced(const FileStore& store, std::u16string_view path, const OutputRules& rules) {
    return !rules.mayReplace.empty() && store.IsSameFile(path, rules.mayReplace);
}

/// Why what has the name stays, `force` or not; empty when there is nothing or a regular file.
std::u16string_view WhyItStays(const FileEntry& entry) {
    switch (entry.kind) {
        case FileKind::Folder:
            return FileProblemText(FileProblem::IsFolder);
        case FileKind::Other:
            return FileProblemText(FileProblem::NotAFile);
        case FileKind::None:
            return entry.isLink ? u"Der Name ist ein Link, der zu keiner Datei führt." : u"";
        case FileKind::Regular:
            break;
    }
    return {};
}

void NoteLinks(std::u16string_view path, const FileEntry& before, Problems& notes) {
    if (before.kind == FileKind::Regular && before.names > 1) {
        notes.push_back({std::u16string(path),
                         0,
                         {},
                         u"Die Datei hatte " + text::Decimal(before.names) +
                             u" Namen (feste Links); die anderen führen noch zum alten Inhalt."});
    }
}

void NoteOwner(std::u16string_view path, bool kept, Problems& notes) {
    if (!kept) {
        notes.push_back({std::u16string(path),
                         0,
                         {},
                         u"Besitzer und Gruppe der Datei konnten nicht beibehalten werden; dazu "
                         u"fehlt das Recht."});
    }
}

}  // namespace

Problems CheckOutput(const FileStore& store, std::u16string_view path, const OutputRules& rules) {
    try {
        const FileEntry entry = store.Describe(path);
        if (const std::u16string_view reason = WhyItStays(entry); !reason.empty()) {
            return Refusal(path, reason);
        }
        if (entry.kind == FileKind::None) {
            return {};
        }
        for (const std::u16string& input : rules.inputs) {
            if (store.IsSameFile(path, input) && !MayBeReplaced(store, path, rules)) {
                return Refusal(
                    path, u"Die Ausgabe wäre dieselbe Datei wie die Eingabe '" + input + u"'.");
            }
        }
        if (rules.force) {
            return {};
        }
        return Refusal(path, entry.isLink ? u"Der Name ist ein Link auf eine vorhandene Datei; "
                                            u"--force ersetzt die Datei, zu der er führt."
                                          : FileProblemText(FileProblem::Exists));
    } catch (...) {
        return Refusal(path, CaughtText());
    }
}

std::unique_ptr<FileLock> LockForChange(FileStore& store, std::u16string_view path,
                                        Problems& problems) {
    try {
        return store.Lock(path, kLockPatience);
    } catch (...) {
        Append(problems, Refusal(path, CaughtText()));
        return nullptr;
    }
}

Problems PlaceOutput(FileStore& store, std::u16string_view temp, std::u16string_view path,
                     const OutputRules& rules, Problems& notes) {
    if (!rules.force) {
        store.PlaceNew(temp, path, rules.access);
        return {};
    }
    // Time has passed since the output was checked first.
    if (Problems problems = CheckOutput(store, path, rules); !problems.empty()) {
        return problems;
    }
    const FileEntry before = store.Describe(path);
    std::unique_ptr<FileLock> lock;
    if (before.kind == FileKind::Regular && rules.held == nullptr) {
        lock = store.Lock(path, kLockPatience);
    }
    NoteOwner(path, store.ReplaceWith(temp, path, rules.access), notes);
    NoteLinks(path, before, notes);
    return {};
}

Problems WriteOutput(FileStore& store, std::u16string_view path, std::string_view bytes,
                     const OutputRules& rules, Problems& notes) {
    try {
        if (Problems problems = CheckOutput(store, path, rules); !problems.empty()) {
            return problems;
        }
        FileCopy copy(store, path, bytes);
        return copy.Place(path, rules, notes);
    } catch (...) {
        return Refusal(path, CaughtText());
    }
}

}  // namespace tarvex
