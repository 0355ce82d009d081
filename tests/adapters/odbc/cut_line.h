#pragma once
// A line to a server that a test can cut.

#include <atomic>
#include <cstdint>
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

  private:
    struct Pair {
        int client;
        int server;
    };

    void run();
    void accept();
    bool pass(int from, int to) const;
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
    std::atomic<bool> stop_ = false;
    std::thread thread_;
};

}  // namespace velmora::test
