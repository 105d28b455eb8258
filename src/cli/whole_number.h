// Whole numbers that operations take, with the range and the form that help and messages show.
#pragma once

#include "cli/operation_arguments.h"

#include <string>

namespace kelvane {

/// From `least` to `most`, known to users by `name`.
struct WholeNumber {
    const char* name;
    int least;
    int most;
    int missing = 0; ///< its value when it may be left out and is
};

/// Field `index` as this number. Throws `UsageError`.
int whole_number(const OperationArguments& arguments, std::size_t index, const WholeNumber& number);

/// For operations with this one argument, which may be left out. Throws `UsageError`.
int optional_number(const OperationArguments& arguments, const WholeNumber& number);

/// "[:LEVEL=240]"
std::string optional_form(const WholeNumber& number);

/// "0 to 255"
std::string range(int least, int most);
std::string range(const WholeNumber& number);

} // namespace kelvane
