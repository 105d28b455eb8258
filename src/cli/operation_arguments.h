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

    /// Everything after the colon as one file name.
    std::string file() const;
    /// Joins the first fields so that `others` remain behind them: a file name may hold commas.
    void join_file_before(std::size_t others);

    [[noreturn]] void fail(const std::string& complaint) const;

  private:
    std::string form_;
    std::string text_;
    bool given_;
    std::vector<std::string> fields_;
};

} // namespace kelvane
