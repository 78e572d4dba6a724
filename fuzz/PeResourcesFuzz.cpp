#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "configurator/program/PeResources.h"
#include "configurator/program/ProgramFields.h"
#include "configurator/program/ProgramResources.h"

/// Any bytes can be read; every resource that is found lies inside the file. Texts that can be put
/// into them are read back, and nothing outside of the named ranges has changed.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string before(reinterpret_cast<const char*>(data), size);
    const tarvex::PeResources directory = tarvex::PeResources::Read(before);
    for (const tarvex::PeResource& resource : directory.All()) {
        if (!tarvex::FileRange{0, size}.Holds(resource.content)) {
            std::abort();
        }
    }
    std::string after = before;
    tarvex::Settings settings;
    settings.Set(tarvex::kFieldCompanyName, u"Müller & Söhne");
    if (!tarvex::PutProgramResources(after, settings, u"a.exe").problems.empty()) {
        return 0;
    }
    const tarvex::ProgramResources resources = tarvex::ProgramResources::Read(before);
    std::string rest = before;
    for (const tarvex::FileRange& range : resources.ChangeableRanges()) {
        rest.replace(range.start, range.size, after, range.start, range.size);
    }
    const tarvex::ProgramResources written = tarvex::ProgramResources::Read(after);
    if (rest != after || written.Version().Text(u"CompanyName") != u"Müller & Söhne" ||
        written.Images() != resources.Images()) {
        std::abort();
    }
    return 0;
}
