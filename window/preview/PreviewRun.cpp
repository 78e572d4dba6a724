#include "window/preview/PreviewRun.h"

#include <optional>
#include <utility>

#include "configurator/checks/Checks.h"
#include "configurator/program/ProgramFields.h"
#include "launch/LaunchEnvironment.h"
#include "platform/ProgramInfo.h"
#include "simulation/LauncherFiles.h"
#include "simulation/LauncherRun.h"
#include "simulation/NoUi.h"
#include "simulation/PcSelection.h"
#include "simulation/SimulationReport.h"
#include "simulation/StoredConstants.h"
#include "window/document/IconField.h"
#include "window/preview/PreviewEntries.h"

namespace tarvex {
namespace {

/// Tells of questions to a described computer that its description leaves open.
class OpenQuestions : public PcListener {
public:
    explicit OpenQuestions(DescribedPc& pc) : pc_(pc) { pc_.SetListener(this); }
    OpenQuestions(const OpenQuestions&) = delete;
    OpenQuestions& operator=(const OpenQuestions&) = delete;
    ~OpenQuestions() override { pc_.SetListener(nullptr); }

    void OnAsked(Asked, std::u16string_view, Presence answer) override {
        unknown.given = unknown.given || answer == Presence::NotDescribed;
    }
    void OnOnlyInOtherView(std::u16string_view, std::u16string_view, bool) override {}

    UnknownAnswer unknown;

private:
    DescribedPc& pc_;
};

class Preview {
public:
    Preview(const PreviewRequest& request, PreviewServices& services)
        : request_(request),
          services_(services),
          info_(MakeProgramInfo(request.program, u"\"" + request.program + u"\"")) {}

    PreviewResult Run() {
        const Settings settings = WithIcon();
        Append(result_.findings, CheckSettings(settings, {}, {&services_.store, info_.folder}));
        Problems problems;
        const StoredConstants constants =
            StoredConstants::FromSettings(request_.settings, {}, services_.codec, problems);
        Remark(problems);
        if (!request_.pc.empty()) {
            RunOnDescribed(constants);
        } else if (services_.thisPc != nullptr) {
            RunHere(constants, *services_.thisPc);
        } else {
            NoPreview(u"Eine Vorschau auf diesem PC gibt es nur unter Windows.");
        }
        return std::move(result_);
    }

private:
    /// The settings with the icon file that they name. It was not read while its path was typed,
    /// because a server may keep one waiting.
    Settings WithIcon() {
        Settings settings = request_.settings;
        const std::u16string_view path = settings.Value(kFieldIconFile);
        if (!path.empty() && settings.Icon().empty()) {
            IconContent icon = ReadIcon(services_.store, info_.folder, path);
            if (!icon.problem.empty()) {
                result_.findings.push_back(
                    {u"icon-file",
                     {{}, 0, std::u16string(FindField(kFieldIconFile)->name), icon.problem}});
            }
            settings.SetIcon(std::move(icon.bytes));
        }
        return settings;
    }

    void RunHere(const StoredConstants& constants, const ThisPc& pc) {
        const LauncherFiles files(pc.Files(), info_);
        TakeOutcome(
            LauncherRun(constants, {pc.RegistryView(), files, pc.Codec(), services_.codec, info_})
                .Run());
        result_.entries = AnswerEntries(
            request_.settings, {pc.RegistryView(), files, pc.Codec(), services_.codec, ui_, info_});
    }

    void RunOnDescribed(const StoredConstants& constants) {
        Problems problems;
        std::optional<SelectedPc> selected = SelectPc(services_.store, request_.pc, problems);
        Remark(problems);
        if (!selected) {
            NoPreview(u"Die Beschreibung des PCs kann nicht verwendet werden.");
            return;
        }
        SimulationResult simulated = SimulateStart(constants, selected->file, selected->file.name);
        TakeOutcome(std::move(simulated.outcome));
        result_.starts = result_.starts && simulated.undescribed.empty();
        for (const Undescribed& one : simulated.undescribed) {
            result_.remarks.push_back(
                u"Nicht beschrieben und darum als nicht vorhanden behandelt: " + one.what);
        }
        for (std::u16string& note : simulated.notes) {
            result_.remarks.push_back(std::move(note));
        }
        for (const Deviation& deviation : simulated.deviations) {
            result_.remarks.push_back(DeviationText(deviation));
        }
        DescribedPc& pc = selected->file.pc;
        OpenQuestions open(pc);
        const ProgramInfo program = pc.Program();
        result_.entries = AnswerEntries(
            request_.settings,
            {pc.RegistryView(), pc.Files(), pc.Codec(), pc.Codec(), ui_, program}, &open.unknown);
    }

    void TakeOutcome(LaunchOutcome outcome) {
        result_.starts = outcome.started;
        result_.commandLine = outcome.started ? std::move(outcome.commandLine) : ErrorLine(outcome);
        result_.text = std::move(outcome.text);
    }

    void NoPreview(std::u16string reason) { result_.commandLine = std::move(reason); }

    void Remark(const Problems& problems) {
        for (const Problem& problem : problems) {
            result_.remarks.push_back(ProblemLine(problem));
        }
    }

    const PreviewRequest& request_;
    PreviewServices& services_;
    ProgramInfo info_;
    NoUi ui_;
    PreviewResult result_;
};

}  // namespace

PreviewResult RunPreview(const PreviewRequest& request, PreviewServices& services) {
    return Preview(request, services).Run();
}

}  // namespace tarvex
