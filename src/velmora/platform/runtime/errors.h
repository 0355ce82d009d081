#pragma once
// Run-time errors of the language, and the trap that resumes at the next statement.

#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace velmora::runtime {

/// Numbers of the language's own run-time errors.
enum ErrorNumber : long {
    invalidProcedureCall = 5,
    overflow = 6,
    subscriptOutOfRange = 9,
    divisionByZero = 11,
    typeMismatch = 13,
    objectNotSet = 91,
    invalidUseOfNull = 94,
    controlArrayElementMissing = 340,
    cannotCreateObject = 429,
};

/// One run-time error. `description` is the Spanish text shown to the user; `source` names the part that raised it.
class RuntimeError : public std::exception {
  public:
    RuntimeError(long number, std::string description, std::string source = "VELMORA")
        : number_(number), description_(std::move(description)), source_(std::move(source)) {}

    long number() const { return number_; }
    const std::string& description() const { return description_; }
    const std::string& source() const { return source_; }
    const char* what() const noexcept override { return description_.c_str(); }

  private:
    long number_;
    std::string description_;
    std::string source_;
};

/// The Spanish description of one of the language's own errors; a generic text for any other number.
std::string errorDescription(long number);

/// Throws the language's error of that number, with its description.
[[noreturn]] void raise(long number);

/// An error trap that resumes at the next statement: each step runs on its own; a failing step leaves its target
/// unchanged (the assignment is the last operation of a step) and the next step runs. The last error is kept until
/// `clear`. Only `RuntimeError` is trapped: any other exception is a defect of the program and passes through.
class ErrorTrap {
  public:
    /// Runs one statement.
    template <typename Step>
    void operator()(Step&& step) {
        try {
            std::forward<Step>(step)();
        } catch (const RuntimeError& e) {
            error_ = e;
        }
    }

    /// Evaluates the condition of a block; a condition that fails skips the block.
    template <typename Condition>
    bool condition(Condition&& condition) {
        bool result = false;
        (*this)([&] { result = std::forward<Condition>(condition)(); });
        return result;
    }

    bool failed() const { return error_.has_value(); }
    const std::optional<RuntimeError>& error() const { return error_; }
    void clear() { error_.reset(); }

  private:
    std::optional<RuntimeError> error_;
};

}  // namespace velmora::runtime
