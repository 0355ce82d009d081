#include "velmora/adapters/odbc/row_bytes.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <type_traits>

namespace velmora::odbc {

namespace {

/// What stands in front of each value.
enum class Tag : char { null, bit, whole, number, text, date, binary };

class Writer {
  public:
    void write(std::size_t size) { raw(&size, sizeof size); }

    void write(const sql::Value& value) {
        std::visit([this](const auto& content) { put(content); }, value.raw());
    }

    std::string take() { return std::move(bytes_); }

  private:
    void raw(const void* data, std::size_t size) { bytes_.append(static_cast<const char*>(data), size); }
    void tag(Tag tag) { bytes_ += static_cast<char>(tag); }

    void put(std::monostate) { tag(Tag::null); }
    void put(bool bit) {
        tag(Tag::bit);
        bytes_ += bit ? '\1' : '\0';
    }
    void put(std::int64_t whole) {
        tag(Tag::whole);
        raw(&whole, sizeof whole);
    }
    void put(double number) {
        tag(Tag::number);
        raw(&number, sizeof number);
    }
    void put(const runtime::Date& date) {
        tag(Tag::date);
        const std::int64_t seconds = date.at.time_since_epoch().count();
        raw(&seconds, sizeof seconds);
    }
    void put(const std::string& text) {
        tag(Tag::text);
        write(text.size());
        raw(text.data(), text.size());
    }
    void put(const sql::Bytes& content) {
        tag(Tag::binary);
        write(content.size());
        raw(content.data(), content.size());
    }

    std::string bytes_;
};

class Reader {
  public:
    explicit Reader(std::string_view bytes) : bytes_(bytes) {}

    std::size_t size() { return plain<std::size_t>(); }

    sql::Value value() {
        switch (static_cast<Tag>(plain<char>())) {
            case Tag::null:
                return {};
            case Tag::bit:
                return plain<char>() != 0;
            case Tag::whole:
                return plain<std::int64_t>();
            case Tag::number:
                return plain<double>();
            case Tag::date: {
                runtime::Date date;
                date.at = std::chrono::sys_seconds(std::chrono::seconds(plain<std::int64_t>()));
                return date;
            }
            case Tag::text:
                return std::string(next(size()));
            case Tag::binary: {
                const auto content = std::as_bytes(std::span(next(size())));
                return sql::Bytes(content.begin(), content.end());
            }
        }
        return {};
    }

  private:
    std::string_view next(std::size_t size) {
        const std::string_view taken = bytes_.substr(0, size);
        bytes_.remove_prefix(taken.size());
        return taken;
    }

    template <typename T>
    T plain() {
        static_assert(std::is_trivially_copyable_v<T>);
        T value{};
        const std::string_view taken = next(sizeof value);
        std::memcpy(&value, taken.data(), taken.size());
        return value;
    }

    std::string_view bytes_;
};

}  // namespace

std::string toBytes(const std::vector<sql::Row>& rows) {
    Writer writer;
    writer.write(rows.size());
    for (const sql::Row& row : rows) {
        writer.write(row.size());
        for (const sql::Value& value : row) {
            writer.write(value);
        }
    }
    return writer.take();
}

std::vector<sql::Row> fromBytes(std::string_view bytes) {
    Reader reader(bytes);
    std::vector<sql::Row> rows(reader.size());
    for (sql::Row& row : rows) {
        const std::size_t columns = reader.size();
        row.reserve(columns);
        for (std::size_t i = 0; i < columns; ++i) {
            row.push_back(reader.value());
        }
    }
    return rows;
}

}  // namespace velmora::odbc
