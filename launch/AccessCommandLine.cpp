#include "launch/AccessCommandLine.h"

#include <string_view>
#include <utility>

#include "launch/Quoting.h"

namespace tarvex {

namespace {

void AppendArgument(std::u16string& line, std::u16string_view lead, std::u16string_view value) {
    if (!value.empty()) {
        line.append(lead).append(Quote(value));
    }
}

void AppendSwitches(std::u16string& line, const LaunchProperties& properties) {
    const std::pair<bool, std::u16string_view> switches[] = {
        {properties.optionCompact, u" /Compact"},     {properties.optionExclusive, u" /Excl"},
        {properties.optionNoStartup, u" /nostartup"}, {properties.optionRepair, u" /Repair"},
        {properties.optionReadOnly, u" /ro"},         {properties.optionRuntime, u" /Runtime"},
        {properties.optionDecompile, u" /Decompile"},
    };
    for (const auto& [isSet, text] : switches) {
        if (isSet) {
            line.append(text);
        }
    }
}

/// A password is of no use to Access without a user name.
void AppendCredentials(std::u16string& line, std::u16string_view user,
                       std::u16string_view password) {
    AppendArgument(line, u" /user ", user);
    if (!user.empty()) {
        AppendArgument(line, u" /pwd ", password);
    }
}

}  // namespace

CommandLines ComposeCommandLine(const ResolvedParts& parts, const LaunchProperties& properties) {
    std::u16string common = parts.access;
    AppendArgument(common, u" ", parts.database);
    AppendArgument(common, u" /wrkgrp ", parts.systemDatabase);
    AppendSwitches(common, properties);
    common.append(parts.profileArgument);
    AppendArgument(common, u" /x ", properties.macro);

    const bool hasUser = !properties.systemDBUser.empty();
    const bool hasPassword = !properties.systemDBPwd.empty();
    CommandLines lines = {common, common};
    AppendCredentials(lines.real, EscapeCredential(properties.systemDBUser),
                      EscapeCredential(properties.systemDBPwd));
    AppendCredentials(lines.hiddenUserPW, hasUser ? u"XXXX" : u"", hasPassword ? u"YYYY" : u"");
    AppendArgument(lines.real, u" /cmd ", properties.cmd);
    AppendArgument(lines.hiddenUserPW, u" /cmd ", properties.cmd);
    return lines;
}

}  // namespace tarvex
