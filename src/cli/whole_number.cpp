#include "cli/whole_number.h"

namespace kelvane {

int whole_number(const OperationArguments& arguments, std::size_t index,
                 const WholeNumber& number) {
    return arguments.integer(index, number.name, number.least, number.most);
}

int optional_number(const OperationArguments& arguments, const WholeNumber& number) {
    arguments.expect_count(0, 1);
    return arguments.given() ? whole_number(arguments, 0, number) : number.missing;
}

std::string optional_form(const WholeNumber& number) {
    return std::string("[:") + number.name + '=' + std::to_string(number.missing) + ']';
}

std::string range(int least, int most) {
    return std::to_string(least) + " to " + std::to_string(most);
}

std::string range(const WholeNumber& number) {
    return range(number.least, number.most);
}

} // namespace kelvane
