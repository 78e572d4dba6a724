#include "commands/Commands.h"

#include "commands/BashCompletion.h"
#include "commands/CommandHelp.h"
#include "commands/CommandLine.h"
#include "commands/ManPage.h"
#include "commands/verbs/Verbs.h"
#include "configurator/FileTexts.h"
#include "resources/Version.h"
#include "text/CodePages.h"
#include "text/Text.h"

namespace tarvex {
namespace {

int Help(CommandContext& context, const CommandLine& line) {
    if (line.arguments.empty()) {
        context.Out(GeneralHelp());
        return kDone;
    }
    const CommandInfo* info = FindCommand(line.arguments[0]);
    if (info == nullptr) {
        context.Err(u"Unbekannter Befehl '" + line.arguments[0] + u"'.");
        return kWrongUsage;
    }
    context.Out(CommandHelp(*info));
    return kDone;
}

int Completion(CommandContext& context, const CommandLine& line) {
    if (line.arguments[0] != u"bash") {
        context.Err(u"Für die Shell '" + line.arguments[0] +
                    u"' gibt es keine Vervollständigung, nur für bash.");
        return kWrongUsage;
    }
    context.Out(BashCompletion());
    return kDone;
}

int Execute(CommandContext& context, const CommandLine& line) {
    switch (line.command) {
        case CommandKind::Brand:
            return Brand(context, line);
        case CommandKind::Set:
            return Set(context, line);
        case CommandKind::Unset:
            return Unset(context, line);
        case CommandKind::Get:
            return Get(context, line);
        case CommandKind::Show:
            return Show(context, line);
        case CommandKind::Diff:
            return Diff(context, line);
        case CommandKind::Export:
            return Export(context, line);
        case CommandKind::Check:
            return Check(context, line);
        case CommandKind::Simulate:
            return Simulate(context, line);
        case CommandKind::Collect:
            return Collect(context, line);
        case CommandKind::Fields:
            return Fields(context, line);
        case CommandKind::Presets:
            return Presets(context, line);
        case CommandKind::Help:
            return Help(context, line);
        case CommandKind::Completion:
            return Completion(context, line);
        case CommandKind::Man:
            context.Out(ManPage());
            return kDone;
        case CommandKind::Version:
            context.Out(u"tarvexcf " TARVEX_VERSION_TEXT u"\n");
            return kDone;
        default:
            return kWrongUsage;
    }
}

}  // namespace

int RunCommand(const std::vector<std::u16string>& arguments,
               const ConfiguratorEnvironment& environment) {
    const CommandLine line = ParseCommandLine(arguments);
    std::unique_ptr<TextCodec> codePage;
    if (line.Has(Option::Codepage)) {
        codePage = MakeCodePage(text::ParseInt32(line.Value(Option::Codepage)).value_or(0));
    }
    const TextCodec& codec = codePage != nullptr ? *codePage : environment.codec;
    CommandContext context({environment.store, codec, environment.console, environment.folders},
                           line.Has(Option::Quiet));
    if (!line.usageError.empty()) {
        context.Err(line.usageError);
        return kWrongUsage;
    }
    if (line.Has(Option::Codepage) && codePage == nullptr) {
        context.Err(u"Die Codeseite '" + std::u16string(line.Value(Option::Codepage)) +
                    u"' gibt es hier nicht; möglich sind 874 und 1250 bis 1258.");
        return kWrongUsage;
    }
    int code = kFailed;
    try {
        code = Execute(context, line);
    } catch (...) {
        const std::u16string file = line.arguments.empty() ? u"" : line.arguments[0];
        context.Tell({{file, 0, {}, CaughtText()}});
    }
    if (!context.OutputIsWhole()) {
        context.Err(u"Die Ausgabe kann nicht geschrieben werden.");
        return kFailed;
    }
    return code;
}

}  // namespace tarvex
