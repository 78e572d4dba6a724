#include "errors/RaisedError.h"

#include <exception>
#include <new>

#include "errors/RuntimeErrors.h"
#include "platform/FileStore.h"
#include "text/Text.h"

namespace tarvex {

namespace {

std::int32_t NumberOf(FileProblem problem) {
    switch (problem) {
        case FileProblem::NotFound:
            return runtime_error::kFileNotFound;
        case FileProblem::PathNotFound:
            return runtime_error::kPathNotFound;
        case FileProblem::AccessDenied:
            return runtime_error::kPathFileAccess;
        case FileProblem::InUse:
            return runtime_error::kPermissionDenied;
        case FileProblem::DiskFull:
            return runtime_error::kDiskFull;
        case FileProblem::Device:
            break;
    }
    return runtime_error::kDeviceIo;
}

}  // namespace

void ExtendSource(RaisedError& error, std::u16string_view place) {
    text::AppendWithSeparator(error.source, place, u" | ");
}

RaisedError CurrentError() {
    try {
        throw;
    } catch (const RaisedError& error) {
        return error;
    } catch (const FileFailure& failure) {
        return RuntimeError(NumberOf(failure.problem));
    } catch (const std::bad_alloc&) {
        return RuntimeError(runtime_error::kOutOfMemory);
    } catch (const std::exception& exception) {
        return RuntimeError(runtime_error::kInternal, text::FromUtf8(exception.what()));
    } catch (...) {
        return RuntimeError(runtime_error::kInternal);
    }
}

void RaiseAgain(std::u16string_view place) {
    RaisedError error = CurrentError();
    ExtendSource(error, place);
    throw RaisedError(std::move(error));
}

}  // namespace tarvex
