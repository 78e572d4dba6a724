#include "configurator/BrandWriter.h"

#include <algorithm>
#include <utility>

#include "branding/BrandMark.h"
#include "branding/StoredValue.h"
#include "branding/cuBrand.h"
#include "configurator/FileCopy.h"
#include "configurator/FileTexts.h"
#include "configurator/SettingsDifference.h"
#include "configurator/program/ProgramFields.h"
#include "configurator/program/ProgramResources.h"
#include "errors/RaisedError.h"
#include "text/Text.h"

namespace tarvex {
namespace {

std::u16string StoredForm(const BrandField& field, std::u16string_view plain,
                          const TextCodec& codec) {
    StoredValue value = MakeStoredValue(field, plain, codec);
    if (!value.problem.empty()) {
        throw RaisedError{.number = 0,
                          .source = {},
                          .description = std::u16string(field.name) + u": " + value.problem,
                          .helpFile = {},
                          .helpContext = 0,
                          .line = 0};
    }
    return std::move(value.stored);
}

/// The bytes with every value area and the marker's digit blanked out.
std::string Unchangeable(std::string_view bytes, const LauncherImage& places) {
    std::string rest(bytes);
    for (const BrandField& field : kBrandFields) {
        if (const LauncherImage::Mark* mark = places.Find(field.number)) {
            rest.replace(mark->valueStart, 2 * mark->area.size(), 2 * mark->area.size(), ' ');
        }
    }
    if (!places.IsBranded()) {
        rest[places.MarkerDigit()] = ' ';
    }
    return rest;
}

/// Whether icon and version texts are read back as they were given.
void ComparePrograms(std::string_view after, const Settings& settings, const std::u16string& file,
                     Problems& problems) {
    Settings given;
    for (const BrandField& field : kProgramFields) {
        if (settings.Has(field.number)) {
            given.Set(field.number, settings.Value(field.number));
        }
    }
    given.SetIcon(settings.Icon());
    Settings read;
    AddProgramSettings(ProgramResources::Read(after), read);
    for (const Difference& difference : CompareSettings(given, read)) {
        if (given.Has(difference.number)) {
            problems.push_back({file, 0, std::u16string(FindField(difference.number)->name),
                                u"Der geschriebene Wert wird nicht so zurückgelesen."});
        }
    }
}

/// The rules for an output that is made from another file.
OutputRules RulesFrom(std::u16string_view source, const OutputRules& rules) {
    OutputRules complete = rules;
    complete.inputs.emplace_back(source);
    complete.access.model = source;
    return complete;
}

}  // namespace

Problems BrandWriter::Brand(std::u16string_view source, std::u16string_view output,
                            const Settings& settings, const OutputRules& rules) {
    Settings all = settings;
    for (const BrandField& field : kBrandFields) {
        if (!all.Has(field.number)) {
            all.Set(field.number, {});
        }
    }
    return Write(Purpose::Brand, source, output, all, RulesFrom(source, rules));
}

Problems BrandWriter::Change(std::u16string_view file, const Settings& changes) {
    Problems problems;
    const std::unique_ptr<FileLock> lock = LockForChange(store_, file, problems);
    return lock == nullptr ? problems : Change(file, changes, *lock);
}

Problems BrandWriter::Change(std::u16string_view file, const Settings& changes,
                             const FileLock& held) {
    return Write(Purpose::Change, file, file, changes, {.force = true, .held = &held});
}

Problems BrandWriter::Copy(std::u16string_view source, std::u16string_view output,
                           const Settings& changes, const OutputRules& rules) {
    return Write(Purpose::Change, source, output, changes, RulesFrom(source, rules));
}

Problems BrandWriter::CheckBrand(std::u16string_view source, const Settings& settings) {
    return CheckSource(Purpose::Brand, source, settings);
}

Problems BrandWriter::CheckChange(std::u16string_view file, const Settings& changes) {
    return CheckSource(Purpose::Change, file, changes);
}

Problems BrandWriter::CheckSource(Purpose purpose, std::u16string_view source,
                                  const Settings& settings) {
    try {
        std::string bytes = store_.ReadAll(source);
        Problems problems = Refusals(purpose, LauncherImage::Read(bytes, source), source, settings);
        return problems.empty() ? PutProgramResources(bytes, settings, source).problems : problems;
    } catch (...) {
        return {{std::u16string(source), 0, {}, CaughtText()}};
    }
}

Problems BrandWriter::Refusals(Purpose purpose, const LauncherImage& image,
                               std::u16string_view source, const Settings& settings) {
    Problems problems = image.ReadProblems();
    Append(problems, image.ChangeProblems());
    Append(problems, image.ProblemsOfSetting(settings));
    if (purpose == Purpose::Brand && image.IsBranded()) {
        problems.push_back({std::u16string(source),
                            0,
                            {},
                            u"Das Startprogramm ist bereits konfiguriert; 'brand' braucht ein "
                            u"unkonfiguriertes. Einzelne Werte ändert 'set'."});
    }
    return problems;
}

Problems BrandWriter::Write(Purpose purpose, std::u16string_view source, std::u16string_view output,
                            const Settings& settings, const OutputRules& rules) {
    std::u16string_view place = source;
    try {
        const std::string bytes = store_.ReadAll(source);
        const LauncherImage image = LauncherImage::Read(bytes, source);
        Problems problems = Refusals(purpose, image, source, settings);
        if (!problems.empty()) {
            return problems;
        }
        place = output;
        return WriteCopy(purpose, bytes, image, output, settings, rules);
    } catch (...) {
        return {{std::u16string(place), 0, {}, CaughtText()}};
    }
}

Problems BrandWriter::WriteCopy(Purpose purpose, const std::string& bytes,
                                const LauncherImage& image, std::u16string_view output,
                                const Settings& settings, const OutputRules& rules) {
    Problems problems = CheckOutput(store_, output, rules);
    if (!problems.empty()) {
        return problems;
    }
    std::string changed = bytes;
    const PutResult put = PutProgramResources(changed, settings, output);
    if (!put.problems.empty()) {
        return put.problems;
    }
    FileCopy copy(store_, output, changed);
    SaveWithCuBrand(purpose, copy.Path(), image, settings);
    problems = CompareBranded(bytes, store_.ReadAll(copy.Path()), settings, output, codec_);
    if (problems.empty()) {
        problems = copy.Place(output, rules, notes_);
    }
    if (problems.empty()) {
        for (const std::u16string& leftOut : put.leftOut) {
            notes_.push_back({std::u16string(output), 0,
                              std::u16string(FindField(kFieldIconFile)->name),
                              u"Nicht im Programm ist " + leftOut + u"."});
        }
    }
    return problems;
}

void BrandWriter::SaveWithCuBrand(Purpose purpose, std::u16string_view file,
                                  const LauncherImage& image, const Settings& settings) {
    cuBrand brand(&store_, nullptr);
    brand.SetMode(BrandMode::File);
    brand.SetDenyMultiBranding(purpose == Purpose::Brand);
    brand.SetFileName(file);
    brand.LoadFromFile();
    for (const auto& [number, entry] : settings.Entries()) {
        if (image.Find(number) == nullptr) {
            continue;  // of the program file, or empty and unknown to this version
        }
        const BrandField& field = *FindBrandField(number);
        cuBranding& item = brand.Brandings().Item(number);
        // A value that crosses a block was loaded only up to there. With the whole value the item
        // knows that it has to be written even when the new value is what had been loaded.
        item.SetValue(image.StoredText(number));
        item.SetValue(StoredForm(field, entry.value, codec_));
    }
    // Only what changed: marks of fields that are not known here stay as they are.
    brand.Save(true);
    brand.SetFileName({});
}

Settings ReadSettings(const LauncherImage& image, std::u16string_view name, const TextCodec& codec,
                      Problems& problems) {
    Settings settings;
    for (const BrandField& field : kBrandFields) {
        if (image.Find(field.number) == nullptr) {
            continue;
        }
        try {
            settings.Set(field.number, PlainValue(field, image.StoredText(field.number), codec));
        } catch (...) {
            problems.push_back(
                {std::u16string(name), 0, std::u16string(field.name),
                 u"Der gespeicherte Wert ist nicht lesbar: " + CurrentError().description});
        }
    }
    return settings;
}

Problems CompareBranded(std::string_view before, std::string_view after, const Settings& settings,
                        std::u16string_view name, const TextCodec& codec) {
    const std::u16string file(name);
    const LauncherImage old = LauncherImage::Read(before, name);
    const LauncherImage image = LauncherImage::Read(after, name);
    Problems problems = image.ReadProblems();
    if (before.size() != after.size()) {
        problems.push_back({file, 0, {}, u"Beim Schreiben hat sich die Größe der Datei geändert."});
        return problems;
    }
    if (!image.IsBranded()) {
        problems.push_back({file, 0, {}, u"Die Kennung wurde nicht geschrieben."});
    }
    for (const BrandField& field : kBrandFields) {
        const LauncherImage::Mark* mark = image.Find(field.number);
        const LauncherImage::Mark* oldMark = old.Find(field.number);
        if (mark == nullptr || oldMark == nullptr) {
            continue;  // the file has no such field, or bytes around its value have changed
        }
        const std::u16string expected =
            settings.Has(field.number)
                ? FitToWidth(StoredForm(field, settings.Value(field.number), codec), field.width)
                : oldMark->area;
        const bool readsBack = !settings.Has(field.number) ||
                               PlainValue(field, mark->area, codec) == settings.Value(field.number);
        if (mark->area != expected || !readsBack) {
            problems.push_back({file, 0, std::u16string(field.name),
                                u"Der geschriebene Wert wird nicht so zurückgelesen."});
        }
    }
    std::string expected(before);
    Append(problems, PutProgramResources(expected, settings, name).problems);
    ComparePrograms(after, settings, file, problems);
    if (Unchangeable(expected, old) != Unchangeable(after, old)) {
        problems.push_back(
            {file, 0, {}, u"Außerhalb der Werte hat sich die Datei beim Schreiben geändert."});
    }
    return problems;
}

}  // namespace tarvex
