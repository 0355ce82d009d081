#include "cut_line.h"

#include <array>
#include <cstddef>
#include <stdexcept>

#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace velmora::test {

namespace {

/// Connected to the server; -1 when nobody listens there.
int connectTo(const std::string& host, const std::string& port) {
    addrinfo wanted{};
    wanted.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(host.c_str(), port.c_str(), &wanted, &found) != 0) {
        return -1;
    }
    const int server = socket(found->ai_family, SOCK_STREAM, 0);
    const bool connected = connect(server, found->ai_addr, found->ai_addrlen) == 0;
    freeaddrinfo(found);
    if (!connected) {
        close(server);
        return -1;
    }
    return server;
}

}  // namespace

CutLine::CutLine(const std::string& host, const std::string& port) : host_(host), serverPort_(port) {
    sockaddr_in own{};
    own.sin_family = AF_INET;
    own.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof own;
    listener_ = socket(AF_INET, SOCK_STREAM, 0);
    if (bind(listener_, reinterpret_cast<sockaddr*>(&own), size) != 0 || listen(listener_, 16) != 0 ||
        getsockname(listener_, reinterpret_cast<sockaddr*>(&own), &size) != 0 || pipe(wake_) != 0) {
        throw std::runtime_error("no port to listen on");
    }
    port_ = ntohs(own.sin_port);
    thread_ = std::thread([this] { run(); });
}

CutLine::~CutLine() {
    stop_ = true;
    cut();
    thread_.join();
    close(listener_);
    close(wake_[0]);
    close(wake_[1]);
}

void CutLine::cut() {
    wakeAndWait(true);
}

void CutLine::mend() {
    wakeAndWait(false);
}

void CutLine::wakeAndWait(bool isCut) {
    wantCut_ = isCut;
    const char byte = 0;
    if (write(wake_[1], &byte, 1) == 1) {
        isCut_.wait(!isCut);
    }
}

void CutLine::run() {
    while (!(stop_ && isCut_)) {
        std::vector<pollfd> watched{{wake_[0], POLLIN, 0}, {listener_, POLLIN, 0}};
        for (const Pair& pair : pairs_) {
            watched.push_back({pair.client, POLLIN, 0});
            watched.push_back({pair.server, POLLIN, 0});
        }
        poll(watched.data(), watched.size(), -1);
        if (watched[0].revents != 0) {
            char byte = 0;
            if (read(wake_[0], &byte, 1) == 1 && wantCut_) {
                closeAll();
            }
            isCut_ = wantCut_.load();
            isCut_.notify_all();
            continue;
        }
        std::vector<Pair> alive;
        for (std::size_t i = 0; i < pairs_.size(); ++i) {
            const Pair& pair = pairs_[i];
            const bool ended = (watched[2 + 2 * i].revents != 0 && !pass(pair.client, pair.server)) ||
                               (watched[3 + 2 * i].revents != 0 && !pass(pair.server, pair.client));
            if (ended) {
                close(pair.client);
                close(pair.server);
            } else {
                alive.push_back(pair);
            }
        }
        pairs_ = std::move(alive);
        if (watched[1].revents != 0) {
            accept();
        }
    }
}

void CutLine::accept() {
    const int client = ::accept(listener_, nullptr, nullptr);
    const int server = isCut_ ? -1 : connectTo(host_, serverPort_);
    if (server < 0) {
        close(client);
        return;
    }
    pairs_.push_back({client, server});
}

/// False when one side has ended.
bool CutLine::pass(int from, int to) const {
    std::array<char, 65536> part{};
    const ssize_t got = recv(from, part.data(), part.size(), 0);
    for (ssize_t sent = 0; got > 0 && sent < got;) {
        const ssize_t more = send(to, part.data() + sent, static_cast<std::size_t>(got - sent), MSG_NOSIGNAL);
        if (more <= 0) {
            return false;
        }
        sent += more;
    }
    return got > 0;
}

void CutLine::closeAll() {
    for (const Pair& pair : pairs_) {
        close(pair.client);
        close(pair.server);
    }
    pairs_.clear();
}

}  // namespace velmora::test
