#include "commands/BashCompletion.h"

#include <set>

#include "commands/CommandTable.h"
#include "configurator/Model.h"
#include "text/Text.h"

namespace tarvex {
namespace {

std::u16string FieldNames(std::u16string_view suffix) {
    std::u16string names;
    for (const BrandField* field : FieldsByNumber()) {
        text::AppendWithSeparator(names, std::u16string(field->name) + std::u16string(suffix),
                                  u" ");
    }
    return names;
}

std::u16string CommandNames() {
    std::u16string names;
    for (const CommandInfo& info : CommandTable()) {
        text::AppendWithSeparator(names, info.name, u" ");
    }
    return names;
}

/// The bash statement that offers such words.
std::u16string Offer(Words words) {
    switch (words) {
        case Words::None:
            return u"COMPREPLY=()";
        case Words::Assignments:
            return u"_tarvexcf_words \"$names_with_equals\"; compopt -o nospace";
        case Words::CodePages:
            return u"_tarvexcf_words '874 1250 1251 1252 1253 1254 1255 1256 1257 1258'";
        case Words::Commands:
            return u"_tarvexcf_words \"$commands\"";
        case Words::FieldNames:
            return u"_tarvexcf_words \"$names\"";
        case Words::Files:
            return u"_tarvexcf_files";
        case Words::Folders:
            return u"mapfile -t COMPREPLY < <(compgen -d -- \"$current\"); compopt -o filenames";
        case Words::Shells:
            return u"_tarvexcf_words bash";
    }
    return {};
}

std::u16string CommandCase(const CommandInfo& info) {
    std::u16string options = u"--help";
    std::u16string values;
    for (const OptionInfo& option : info.options) {
        const std::u16string typed = u"--" + text::FromUtf8(option.name);
        options += u" " + typed;
        if (!option.value.empty()) {
            values += u"                " + typed + u") " + Offer(option.words) + u"; return ;;\n";
        }
    }
    std::u16string code = u"        " + std::u16string(info.name) + u")\n";
    if (!values.empty()) {
        code += u"            case $previous in\n" + values + u"            esac\n";
    }
    code += u"            if [[ $current == -* ]]; then _tarvexcf_words '" + options +
            u"'; return; fi\n";
    if (info.arguments.empty()) {
        return code + u"            ;;\n";
    }
    code += u"            case $place in\n";
    for (std::size_t i = 0; i < info.arguments.size(); ++i) {
        const ArgumentInfo& argument = info.arguments[i];
        const std::u16string place =
            argument.repeats ? u"*" : text::Decimal(static_cast<std::int64_t>(i));
        code += u"                " + place + u") " + Offer(argument.words) + u" ;;\n";
    }
    return code + u"            esac\n            ;;\n";
}

/// Options of any command that take a value: what follows them is not an argument.
std::u16string OptionsWithValues() {
    std::set<std::string_view> names;
    for (const CommandInfo& info : CommandTable()) {
        for (const OptionInfo& option : info.options) {
            if (!option.value.empty()) {
                names.insert(option.name);
            }
        }
    }
    std::u16string pattern;
    for (const std::string_view name : names) {
        text::AppendWithSeparator(pattern, u"--" + text::FromUtf8(name), u" | ");
    }
    return pattern;
}

}  // namespace

std::u16string BashCompletion() {
    std::u16string script =
        u"# bash completion for tarvexcf\n"
        u"_tarvexcf_words() { mapfile -t COMPREPLY < <(compgen -W \"$1\" -- \"$current\"); }\n"
        u"_tarvexcf_files() { mapfile -t COMPREPLY < <(compgen -f -- \"$current\"); compopt -o "
        u"filenames; }\n"
        u"_tarvexcf() {\n"
        u"    local current=${COMP_WORDS[COMP_CWORD]} previous= i place=0\n"
        u"    local commands='" +
        CommandNames() +
        u"'\n"
        u"    local names='" +
        FieldNames({}) +
        u"'\n"
        u"    local names_with_equals='" +
        FieldNames(u"=") +
        u"'\n"
        u"    COMPREPLY=()\n"
        u"    if ((COMP_CWORD == 1)); then\n"
        u"        _tarvexcf_words \"$commands --help --version\"\n"
        u"        return\n"
        u"    fi\n"
        u"    ((COMP_CWORD > 2)) && previous=${COMP_WORDS[COMP_CWORD - 1]}\n"
        u"    for ((i = 2; i < COMP_CWORD; i++)); do\n"
        u"        case ${COMP_WORDS[i]} in\n"
        u"            " +
        OptionsWithValues() +
        u") ((i++)) ;;\n"
        u"            -?*) ;;\n"
        u"            *) ((place++)) ;;\n"
        u"        esac\n"
        u"    done\n"
        u"    case ${COMP_WORDS[1]} in\n";
    for (const CommandInfo& info : CommandTable()) {
        script += CommandCase(info);
    }
    script +=
        u"    esac\n"
        u"}\n"
        u"complete -F _tarvexcf tarvexcf\n";
    return script;
}

}  // namespace tarvex
