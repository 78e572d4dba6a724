#include "simulation/pc/DescribedPc.h"

#include <utility>

#include "simulation/pc/DescribedFiles.h"
#include "simulation/pc/DescribedRegistry.h"
#include "simulation/pc/PcDescription.h"
#include "text/CodePages.h"

namespace tarvex {

namespace {

std::unique_ptr<TextCodec> CodecOf(const PcDescription& description) {
    std::unique_ptr<TextCodec> codec = MakeCodePage(description.codePage);
    return codec != nullptr ? std::move(codec) : MakeCodePage(PcDescription().codePage);
}

}  // namespace

struct DescribedPc::Parts {
    explicit Parts(PcDescription from)
        : description(std::move(from)),
          codec(CodecOf(description)),
          registry(description, *codec),
          files(description) {}

    PcDescription description;
    std::unique_ptr<TextCodec> codec;
    DescribedRegistry registry;
    DescribedFiles files;
};

DescribedPc::DescribedPc(PcDescription description)
    : parts_(std::make_unique<Parts>(std::move(description))) {}

DescribedPc::DescribedPc(DescribedPc&& other) noexcept = default;
DescribedPc& DescribedPc::operator=(DescribedPc&& other) noexcept = default;
DescribedPc::~DescribedPc() = default;

const Registry& DescribedPc::RegistryView() const {
    return parts_->registry;
}

FileSystem& DescribedPc::Files() const {
    return parts_->files;
}

const TextCodec& DescribedPc::Codec() const {
    return *parts_->codec;
}

ProgramInfo DescribedPc::Program() const {
    const PcDescription& description = parts_->description;
    return MakeProgramInfo(description.program,
                           u"\"" + description.program + u"\" " + description.switches);
}

const PcDescription& DescribedPc::Description() const {
    return parts_->description;
}

void DescribedPc::SetListener(PcListener* listener) {
    parts_->registry.listener = listener;
    parts_->files.listener = listener;
}

}  // namespace tarvex
