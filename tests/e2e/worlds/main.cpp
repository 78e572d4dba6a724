// worlds FIRST COUNT FILE: draws the worlds of the property tests and writes them to a file, for
// tests that make them real. Each line is one thing of a world, its parts separated by tabs:
//   world SEED
//   program FOLDER NAME         folder and name of the launcher, without its extension
//   set FIELD VALUE             a setting
//   registry KEY NAME KIND TEXT KIND is "text", "open" (without the closing zero) or "other"
//   file PATH                   as the launcher asks for it
#include <cstdlib>
#include <fstream>
#include <iostream>

#include "branding/BrandFields.h"
#include "launch/RegistryKeyList.h"
#include "tests/launch/RandomSettings.h"

namespace tarvex {
namespace {

class WorldWriter {
public:
    WorldWriter(std::uint32_t seed, std::ostream& out) : launch_(seed), out_(out) {}

    void Write() {
        Line({u"world", text::Decimal(launch_.Seed())});
        Line({u"program", launch_.program.folder, launch_.program.exeName});
        for (const auto& [field, value] : SettingsOf(launch_)) {
            Line({u"set", std::u16string(FindBrandField(field)->name), value});
        }
        WriteRegistry();
        for (const std::u16string& path : launch_.FilesFound()) {
            Line({u"file", path});
        }
    }

private:
    void Line(const std::vector<std::u16string>& parts) {
        std::u16string line;
        for (const std::u16string& part : parts) {
            line += (line.empty() ? u"" : u"\t") + part;
        }
        out_ << text::ToUtf8(line) << '\n';
    }

    void WriteRegistry() {
        for (const FakeRegistry::Key& key : launch_.registry.Keys()) {
            const std::u16string path = std::u16string(HKeyName(key.root)) + u"\\" + key.path;
            for (const FakeRegistry::Value& value : key.values) {
                std::u16string text = launch_.codec.FromAnsi(value.bytes);
                const bool closed = text.ends_with(u'\0');
                if (closed) {
                    text.pop_back();
                }
                Line({u"registry", path, value.name,
                      !value.isText ? u"other"
                      : closed      ? u"text"
                                    : u"open",
                      value.isText ? text : u""});
            }
        }
    }

    RandomLaunch launch_;
    std::ostream& out_;
};

}  // namespace
}  // namespace tarvex

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: worlds FIRST COUNT FILE\n";
        return 2;
    }
    std::ofstream out(argv[3], std::ios::binary);
    const unsigned long first = std::strtoul(argv[1], nullptr, 10);
    const unsigned long count = std::strtoul(argv[2], nullptr, 10);
    for (unsigned long seed = first; seed < first + count; ++seed) {
        tarvex::WorldWriter(static_cast<std::uint32_t>(seed), out).Write();
    }
    return out.good() ? 0 : 1;
}
