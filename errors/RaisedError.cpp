#include "errors/RaisedError.h"

#include <exception>
#include <new>

#include "errors/RuntimeErrors.h"
#include "platform/FileStore.h"
#include "text/Text.h"

namespace tarvex {

namespace {

RuntimeError ErrorOf(FileProblem problem) {
    switch (problem) {
        case FileProblem::NotFound:
            return RuntimeError::FileNotFound;
        case FileProblem::PathNotFound:
            return RuntimeError::PathNotFound;
        case FileProblem::AccessDenied:
        case FileProblem::IsFolder:
        case FileProblem::NotAFile:
        case FileProblem::ReadOnlyMedium:
        case FileProblem::Exists:
            return RuntimeError::PathFileAccess;
        case FileProblem::InUse:
        case FileProblem::Locked:
            return RuntimeError::PermissionDenied;
        case FileProblem::DiskFull:
            return RuntimeError::DiskFull;
        case FileProblem::Device:
            break;
    }
    return RuntimeError::DeviceIo;
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
        return MakeError(ErrorOf(failure.problem));
    } catch (const std::bad_alloc&) {
        return MakeError(RuntimeError::OutOfMemory);
    } catch (const std::exception& exception) {
        return MakeError(RuntimeError::Internal, text::FromUtf8(exception.what()));
    } catch (...) {
        return MakeError(RuntimeError::Internal);
    }
}

void RaiseAgain(std::u16string_view place) {
    RaisedError error = CurrentError();
    ExtendSource(error, place);
    throw RaisedError(std::move(error));
}

}  // namespace tarvex
