// The text after an operation's name, taken apart.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvane {

/// What an operation was given. Every function throws `UsageError` that says what is accepted.
class OperationArguments {
  public:
    /// `form` shows the operation as a user writes it ("bw:LIMIT"). `text` is what follows the
    /// colon; without a colon `given` is false.
    OperationArguments(std::string_view form, std::string_view text, bool given);

    /// Number of fields between commas; 0 without a colon.
    std::size_t count() const { return fields_.size(); }
    bool given() const { return given_; }
    void expect_count(std::size_t least, std::size_t most) const;
    void expect_none() const { expect_count(0, 0); }

    /// Field `index` as a whole number from `least` to `most`, called `name` in messages.
    int integer(std::size_t index, std::string_view name, int least, int most) const;
    /// The same for a number with decimals.
    float decimal(std::size_t index, std::string_view name, float least, float most) const;
    const std::string& field(std::size_t index) const { return fields_.at(index); }

    /// Everything after the colon as the name of a file that the operation reads.
    std::string file();
    /// The same for all but the last `others` fields, which become those from 1 on: a file's name
    /// may hold commas.
    std::string file_before(std::size_t others);
    /// The file asked for, or nothing.
    const std::string& input_file() const { return input_file_; }

    [[noreturn]] void fail(const std::string& complaint) const;

  private:
    /// `name` with the operation before it.
    std::string full_name(std::string_view name) const;

    std::string form_;
    std::string text_;
    bool given_;
    std::vector<std::string> fields_;
    std::string input_file_;
};

} // namespace kelvane
