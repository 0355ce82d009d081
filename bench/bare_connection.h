#pragma once
// A connection as the program sets up its own, without the program.

#include <memory>
#include <string>

struct sqlite3;

namespace velmora::bench {

/// Errors: std::runtime_error.
class BareConnection {
  public:
    explicit BareConnection(const std::string& file);
    sqlite3* handle() const { return handle_.get(); }
    void run(const std::string& sql);

  private:
    struct Close {
        void operator()(sqlite3* database) const;
    };
    std::unique_ptr<sqlite3, Close> handle_;
};

}  // namespace velmora::bench
