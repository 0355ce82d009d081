#pragma once
// Statements and their answers, recorded on an engine and given again where there is none.

#include <charconv>
#include <cstdint>
#include <deque>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "velmora/platform/sql/connection.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::support {

/// What a statement answered: nothing, or columns and all rows.
struct RecordedAnswer {
    bool hasRows = false;
    std::vector<std::string> columns;
    std::vector<sql::Row> rows;

    sql::Recordset open() const {
        if (!hasRows) {
            return {};
        }
        std::vector<sql::Column> named;
        for (const std::string& column : columns) {
            named.push_back({column});
        }
        return sql::Recordset(sql::rowsInMemory(std::move(named), rows));
    }
};

struct RecordedStatement {
    std::string text;
    RecordedAnswer answer;
};

struct Recording {
    std::string catalog;  ///< the connection's
    std::vector<RecordedStatement> statements;
};

/// A file of statements: numbers end with a blank, texts follow their length.
class RecordingText {
  public:
    void put(std::int64_t number) { text_ += std::to_string(number) + ' '; }
    void put(const std::string& text) {
        put(static_cast<std::int64_t>(text.size()));
        text_ += text;
    }
    void put(const sql::Value& value) {
        if (value.isNull()) {
            text_ += 'n';
        } else if (value.isBit()) {
            text_ += value.toBool() ? 't' : 'f';
        } else if (value.isWhole()) {
            text_ += 'w';
            put(std::get<std::int64_t>(value.raw()));
        } else if (value.isText()) {
            text_ += 's';
            put(std::get<std::string>(value.raw()));
        } else if (value.isDate()) {
            text_ += 'd';
            put(std::int64_t{std::get<runtime::Date>(value.raw()).at.time_since_epoch().count()});
        } else if (value.isBytes()) {
            text_ += 'b';
            const auto& bytes = std::get<sql::Bytes>(value.raw());
            put(std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
        } else {
            text_ += 'x';
            char digits[40];
            const auto end = std::to_chars(digits, digits + sizeof digits, std::get<double>(value.raw())).ptr;
            put(std::string(digits, end));
        }
    }
    const std::string& text() const { return text_; }

  private:
    std::string text_;
};

class RecordingReader {
  public:
    explicit RecordingReader(std::string text) : text_(std::move(text)) {}

    bool atEnd() const { return at_ >= text_.size(); }
    std::int64_t number() {
        const std::size_t blank = text_.find(' ', at_);
        std::int64_t value = 0;
        std::from_chars(text_.data() + at_, text_.data() + blank, value);
        at_ = blank + 1;
        return value;
    }
    std::string text() {
        const auto length = static_cast<std::size_t>(number());
        std::string result = text_.substr(at_, length);
        at_ += length;
        return result;
    }
    sql::Value value() {
        switch (text_.at(at_++)) {
            case 'n':
                return {};
            case 't':
                return true;
            case 'f':
                return false;
            case 'w':
                return number();
            case 's':
                return text();
            case 'd':
                return runtime::Date{std::chrono::sys_seconds{std::chrono::seconds{number()}}};
            case 'b': {
                const std::string bytes = text();
                const auto* first = reinterpret_cast<const std::byte*>(bytes.data());
                return sql::Bytes(first, first + bytes.size());
            }
            case 'x': {
                const std::string digits = text();
                double value = 0;
                std::from_chars(digits.data(), digits.data() + digits.size(), value);
                return value;
            }
            default:
                throw std::runtime_error("the recording is damaged");
        }
    }

  private:
    std::string text_;
    std::size_t at_ = 0;
};

inline void writeRecording(const Recording& recording, const std::string& path) {
    RecordingText text;
    text.put(recording.catalog);
    for (const RecordedStatement& statement : recording.statements) {
        text.put(statement.text);
        text.put(std::int64_t{statement.answer.hasRows});
        text.put(static_cast<std::int64_t>(statement.answer.columns.size()));
        for (const std::string& column : statement.answer.columns) {
            text.put(column);
        }
        text.put(static_cast<std::int64_t>(statement.answer.rows.size()));
        for (const sql::Row& row : statement.answer.rows) {
            for (const sql::Value& value : row) {
                text.put(value);
            }
        }
    }
    std::ofstream file(system::filePath(path), std::ios::binary);
    file << text.text();
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + path);
    }
}

inline Recording readRecording(const std::string& path) {
    std::ifstream file(system::filePath(path), std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + path);
    }
    RecordingReader reader({std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()});
    Recording recording{.catalog = reader.text(), .statements = {}};
    while (!reader.atEnd()) {
        RecordedStatement statement{.text = reader.text(), .answer = {}};
        statement.answer.hasRows = reader.number() != 0;
        statement.answer.columns.resize(static_cast<std::size_t>(reader.number()));
        for (std::string& column : statement.answer.columns) {
            column = reader.text();
        }
        statement.answer.rows.resize(static_cast<std::size_t>(reader.number()));
        for (sql::Row& row : statement.answer.rows) {
            for (std::size_t i = 0; i < statement.answer.columns.size(); ++i) {
                row.push_back(reader.value());
            }
        }
        recording.statements.push_back(std::move(statement));
    }
    return recording;
}

/// Keeps each statement with all rows of its answer.
class RowRecorder final : public sql::ForwardingConnection {
  public:
    using ForwardingConnection::ForwardingConnection;

    sql::Recordset execute(std::string_view statement) override {
        sql::Recordset set = ForwardingConnection::execute(statement);
        RecordedAnswer answer;
        if (set.isOpen()) {
            answer.hasRows = true;
            for (const sql::Column& column : set.columns()) {
                answer.columns.push_back(column.name);
            }
            for (std::size_t row = 0; const sql::Row* values = set.peek(row); ++row) {
                answer.rows.push_back(*values);
            }
        }
        statements_.push_back({.text = std::string(statement), .answer = std::move(answer)});
        return set;
    }
    Recording recording() const { return {.catalog = currentCatalog(), .statements = statements_}; }

  private:
    std::vector<RecordedStatement> statements_;
};

/// Answers each statement as recorded: a repeated one with its answers in turn, the last one for good. A statement that
/// was not recorded is a failure of the provider that names it.
class RecordedConnection final : public sql::Connection {
  public:
    explicit RecordedConnection(Recording recording) : catalog_(std::move(recording.catalog)) {
        for (RecordedStatement& statement : recording.statements) {
            answers_[statement.text].push_back(std::move(statement.answer));
        }
    }

    sql::Recordset execute(std::string_view statement) override {
        executed.emplace_back(statement);
        const auto found = answers_.find(statement);
        if (found == answers_.end()) {
            throw sql::DbError(sql::provider::failure, "Not recorded: " + std::string(statement));
        }
        const sql::Recordset answer = found->second.front().open();
        if (found->second.size() > 1) {
            found->second.pop_front();
        }
        return answer;
    }
    void beginTrans() override {}
    void commitTrans() override {}
    void rollbackTrans() override {}
    std::string currentCatalog() const override { return catalog_; }
    bool isAlive() override { return true; }

    std::vector<std::string> executed;

  private:
    std::string catalog_;
    std::map<std::string, std::deque<RecordedAnswer>, std::less<>> answers_;
};

}  // namespace velmora::support
