#include <algorithm>

#include "commands/Json.h"
#include "commands/verbs/Verbs.h"
#include "configurator/FieldTexts.h"
#include "text/Text.h"

namespace tarvex {
namespace {

std::u16string JsonOf(const BrandField& field, const TextCodec& codec) {
    return u"  {\"number\": " + text::Decimal(field.number) + u", \"name\": " +
           JsonString(field.name) + u", \"width\": " + text::Decimal(UsableWidth(field, codec)) +
           u", \"storedWidth\": " + text::Decimal(field.width) + u", \"meaning\": " +
           JsonString(FieldMeaning(field)) + u"}";
}

std::u16string LineOf(const BrandField& field, std::size_t nameWidth, const TextCodec& codec) {
    std::u16string name(field.name);
    name.resize(nameWidth, u' ');
    const std::u16string width = text::Decimal(UsableWidth(field, codec));
    return text::Decimal(field.number, 3) + u"  " + name + u"  " +
           std::u16string(width.size() < 3 ? 3 - width.size() : 0, u' ') + width + u"  " +
           FieldMeaning(field) + u"\n";
}

}  // namespace

int Fields(CommandContext& context, const CommandLine& line) {
    std::size_t longest = 0;
    for (const BrandField* field : FieldsByNumber()) {
        longest = std::max(longest, field->name.size());
    }
    const bool json = line.Has(Option::Json);
    std::u16string out;
    for (const BrandField* field : FieldsByNumber()) {
        if (json) {
            out += out.empty() ? u"[\n" : u",\n";
            out += JsonOf(*field, context.Codec());
        } else {
            out += LineOf(*field, longest, context.Codec());
        }
    }
    context.Out(json ? out + u"\n]\n" : out);
    return kDone;
}

}  // namespace tarvex
