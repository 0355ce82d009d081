#pragma once
// A line to a server that a test can cut.

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace velmora::test {

/// Listens on a port of this machine and passes what comes on to a server, and back. POSIX only.
class CutLine {
  public:
    /// Errors: std::runtime_error when there is no such host or no port.
    CutLine(const std::string& host, const std::string& port);
    ~CutLine();
    CutLine(const CutLine&) = delete;
    CutLine& operator=(const CutLine&) = delete;

    std::uint16_t port() const { return port_; }

    /// Ends every connection; new ones end at once. Returns when it has happened.
    void cut();
    /// New connections get through again.
    void mend();
    /// The server falls silent: nothing that it answers arrives until the line is cut.
    void silence() { isSilent_ = true; }

    // --- Requests: what a client sends until the server answers it. They are counted over all connections. ---------

    enum class Moment {
        beforeRequest,  ///< the request does not reach the server
        beforeAnswer,   ///< the server has done what it was asked, but its answer does not arrive
    };
    /// Counts requests anew, from 0.
    void count();
    /// Counts anew, and cuts the line by itself at this request.
    void cutAt(std::size_t request, Moment moment);
    /// The readable characters of every request that the server has got since the count began.
    std::vector<std::string> requests() const;

  private:
    struct Pair {
        int client;
        int server;
        std::size_t request = 0;  ///< the last one
        bool isAnswered = true;
    };
    struct Cut {
        std::size_t request;
        Moment moment;
    };

    void run();
    void accept();
    bool passRequest(Pair& pair);
    bool passAnswer(Pair& pair);
    bool isCutHere(const Pair& pair, Moment moment);
    void closeAll();
    void wakeAndWait(bool isCut);

    std::string host_;
    std::string serverPort_;
    std::uint16_t port_ = 0;
    int listener_ = -1;
    int wake_[2] = {-1, -1};
    std::vector<Pair> pairs_;  ///< of the thread
    std::atomic<bool> wantCut_ = false;
    std::atomic<bool> isCut_ = false;
    std::atomic<bool> isSilent_ = false;
    std::atomic<bool> stop_ = false;
    mutable std::mutex mutex_;  ///< for the next two
    std::vector<std::string> requests_;
    std::optional<Cut> cut_;
    std::thread thread_;
};

}  // namespace velmora::test
