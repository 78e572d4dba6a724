// The C++ library reports a misuse of its containers by exceptions whose classes carry texts of a
// kind that needs 80 KB of string code in the program. These functions take their place for the
// whole program; what they throw is an internal error for the one place that shows errors.
#include <cstddef>
#include <exception>
#include <new>

namespace {

class LibraryError : public std::exception {
public:
    explicit LibraryError(const char* what) : what_(what) {}
    const char* what() const noexcept override { return what_; }

private:
    const char* what_;
};

}  // namespace

// The names are the library's own.
// NOLINTBEGIN(bugprone-reserved-identifier)
namespace std {

void __throw_length_error(const char* what) {
    throw LibraryError(what);
}

void __throw_logic_error(const char* what) {
    throw LibraryError(what);
}

void __throw_invalid_argument(const char* what) {
    throw LibraryError(what);
}

void __throw_out_of_range(const char* what) {
    throw LibraryError(what);
}

void __throw_out_of_range_fmt(const char* format, ...) {
    throw LibraryError(format);
}

void __throw_bad_alloc() {
    throw std::bad_alloc();
}

void __throw_bad_array_new_length() {
    throw std::bad_array_new_length();
}

}  // namespace std
// NOLINTEND(bugprone-reserved-identifier)
