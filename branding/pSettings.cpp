#include "branding/pSettings.h"

#include <utility>

#include "branding/BrandFields.h"
#include "branding/LaunchFields.h"
#include "branding/Scrambling.h"
#include "errors/RaisedError.h"
#include "errors/cuAppError.h"
#include "launch/DiagnosticLog.h"
#include "launch/PathHelpers.h"
#include "launch/cuTarvex.h"
#include "resources/Version.h"
#include "text/Text.h"
#include "util/FileVersionInfo.h"

namespace tarvex {

namespace {

/// The key lists of the launch object by their selectors.
constexpr KeyListFields kLaunchLists[] = {kAccRegList, kDBRegList, kSysDBRegList};

void AddValue(DiagnosticLog& report, std::u16string_view label, std::u16string_view value) {
    report.AddLog(std::u16string(label).append(u" = ").append(value));
}

void AddRule(DiagnosticLog& report) {
    report.AddLog(std::u16string(50, u'-'));
}

/// What the report shows of an item: its value, or, for a user name or password that is set, the
/// placeholder.
std::u16string_view ReportedValue(const cuBranding& item, std::u16string_view placeholder) {
    const BrandField* const field = FindBrandField(item.Index());
    const bool hidden = field != nullptr && field->kind == FieldKind::Credential;
    return hidden && !item.Value().empty() ? placeholder : std::u16string_view(item.Value());
}

}  // namespace

pSettings::pSettings(const BrandConstants& constants, cuAppError& appError,
                     const LaunchEnvironment& environment)
    : constants_(constants),
      appError_(appError),
      environment_(environment),
      brand_(std::make_unique<cuBrand>(nullptr, &constants_)) {}

pSettings::~pSettings() = default;

void pSettings::LoadSettings() {
    AtPlace(u"pSettings: LoadSettings", [&] {
        brand_ = std::make_unique<cuBrand>(nullptr, &constants_);
        brand_->SetMode(BrandMode::Constants);
        brand_->LoadFomConstants(constants_.Marks());
        if (brand_->BrandInformation() != BrandState::Branded) {
            appError_.RaiseMessage(Message::NotBranded,
                                   CompanionPath(environment_.program, u".exe"));
        }
        for (cuBranding& item : brand_->Brandings()) {
            item.SetValue(ScrambleBrandValue(item.Value(), environment_.settingsCodec));
        }
        if (std::u16string appName = Value(kFieldAppName); !appName.empty()) {
            appError_.SetAppName(std::move(appName));
        }
    });
}

std::u16string pSettings::Value(std::int32_t field, std::u16string_view defaultValue) const {
    return AtPlace(u"pSettings: Value", [&] {
        const cuBrandings& brandings = brand_->Brandings();
        const std::u16string_view value = brandings.Count() == 0
                                              ? std::u16string_view()
                                              : text::Trim(brandings.Item(field).Value());
        return std::u16string(value.empty() ? defaultValue : value);
    });
}

bool pSettings::Flag(std::int32_t field) const {
    return text::EqualsIgnoreCase(Value(field), u"1");
}

std::unique_ptr<cuTarvex> pSettings::InitTarvex() const {
    return AtPlace(u"pSettings: InitTarvex", [&] {
        auto tarvex = std::make_unique<cuTarvex>(environment_);
        BuildRegLists(*tarvex);
        LaunchProperties& properties = tarvex->Properties();
        for (const auto& [field, text] : kLaunchTextFields) {
            properties.*text = Value(field);
        }
        for (const auto& [field, option] : kLaunchOptionFields) {
            properties.*option = Flag(field);
        }
        for (const auto& [field, credential] : kLaunchCredentialFields) {
            if (const std::u16string list = Value(field); !list.empty()) {
                properties.*credential = DecodeNumberList(list, environment_.settingsCodec);
            }
        }
        return tarvex;
    });
}

std::vector<std::u16string> pSettings::KeyList(const KeyListFields& list) const {
    std::vector<std::u16string> entries;
    for (const std::int32_t field : list.Numbers()) {
        if (std::u16string entry = Value(field); !entry.empty()) {
            entries.push_back(std::move(entry));
        }
    }
    return entries;
}

void pSettings::BuildRegLists(cuTarvex& tarvex) const {
    AtPlace(u"pSettings: BuildRegLists", [&] {
        std::int32_t selector = 0;
        for (const KeyListFields& list : kLaunchLists) {
            for (const std::u16string& entry : KeyList(list)) {
                tarvex.RegListAdd(selector, entry);
            }
            ++selector;
        }
    });
}

std::u16string pSettings::DebugInfo(const VersionResource& versions) const {
    return AtPlace(u"pSettings: DebugInfo", [&] {
        DiagnosticLog report;
        const std::u16string placeholder = appError_.MsgLoad(Message::NotShown);
        for (const cuBranding& item : Brand().Brandings()) {
            if (item.Index() != kFieldFileID) {
                AddValue(report, item.Name(), ReportedValue(item, placeholder));
            }
        }
        AddRule(report);
        AddValue(report, u"Version", u"" TARVEX_VERSION_TEXT);
        AddValue(report, u"FileID", Value(kFieldFileID));
        AddRule(report);
        FileVersionInfo file(versions);
        file.SetFullPathName(CompanionPath(environment_.program, u".exe"));
        AddValue(report, u"Beschreibung", file.FileDescription());
        AddValue(report, u"Firmenname", file.CompanyName());
        AddValue(report, u"Copyright", file.LegalCopyright());
        AddValue(report, u"Marken", file.LegalTrademarks());
        AddValue(report, u"Produktname", file.ProductName());
        AddValue(report, u"Produktversion", file.ProductVersion());
        return report.Text();
    });
}

}  // namespace tarvex
