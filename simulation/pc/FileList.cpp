#include "simulation/pc/FileList.h"

#include <utility>

#include "configurator/Model.h"
#include "configurator/TextFile.h"
#include "simulation/pc/CodePage850.h"
#include "simulation/pc/WindowsPaths.h"

namespace tarvex {

ParsedFileList ParseFileList(std::string_view bytes, std::u16string_view name) {
    ParsedFileList result;
    std::int32_t number = 0;
    const auto report = [&](std::u16string text) {
        result.problems.push_back({std::u16string(name), number, {}, std::move(text)});
    };
    DecodedText decoded = DecodeText(bytes, ZeroBytes::HalvesOfUtf16);
    if (decoded.badLine != 0) {
        if (!IsUnmarkedText(bytes)) {
            number = decoded.badLine;
            report(std::move(decoded.problem));
            return result;
        }
        decoded.text = FromCodePage850(bytes);
    }
    for (const std::u16string_view line : TextLines(decoded.text)) {
        ++number;
        const std::u16string_view path = TrimBlanksAndTabs(line);
        if (path.empty()) {
            continue;
        }
        if (path.find(u'?') != std::u16string_view::npos) {
            report(u"'" + std::u16string(path) +
                   u"' enthält ein '?': Die Konsole hat ein Zeichen verloren. Mit 'cmd /u /c dir "
                   u"/s /b /a-d' oder nach 'chcp 65001' bleibt es erhalten.");
        } else if (std::u16string problem = DescribedPathProblem(path); !problem.empty()) {
            report(std::move(problem));
        } else {
            result.paths.emplace_back(path);
        }
    }
    return result;
}

std::u16string DescribedPathProblem(std::u16string_view path) {
    const std::u16string quoted = u"'" + std::u16string(path) + u"'";
    const bool hasStart = IsFullWindowsPath(path) || path.starts_with(u'\\') ||
                          path.starts_with(u'/') || (path.size() > 1 && path[1] == u':');
    if (!hasStart) {
        return quoted + u" ist kein vollständiger Pfad.";
    }
    if (!FullWindowsPath(path, u"C:\\")) {
        return quoted + u" ist kein Pfad, den es unter Windows geben kann.";
    }
    return {};
}

}  // namespace tarvex
