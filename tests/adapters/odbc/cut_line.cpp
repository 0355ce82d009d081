#include "cut_line.h"

#include <cstddef>
#include <stdexcept>
#include <utility>

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

/// Waits for what comes next; empty when the other side has ended.
std::string received(int from) {
    std::string part(65536, '\0');
    const ssize_t got = recv(from, part.data(), part.size(), 0);
    part.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return part;
}

/// False when the other side has ended.
bool send(const std::string& part, int to) {
    for (std::size_t sent = 0; sent < part.size();) {
        const ssize_t more = ::send(to, part.data() + sent, part.size() - sent, MSG_NOSIGNAL);
        if (more <= 0) {
            return false;
        }
        sent += static_cast<std::size_t>(more);
    }
    return true;
}

/// Statements travel as UTF-16, low byte first: their characters of ASCII.
std::string readable(const std::string& part) {
    std::string text;
    for (std::size_t i = 0; i + 1 < part.size(); ++i) {
        if (part[i] >= ' ' && part[i] <= '~' && part[i + 1] == '\0') {
            text += part[i];
        }
    }
    return text;
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
    isSilent_ = false;
    wakeAndWait(true);
}

void CutLine::mend() {
    count();
    wakeAndWait(false);
}

void CutLine::count() {
    const std::lock_guard lock(mutex_);
    requests_.clear();
    cut_.reset();
}

void CutLine::cutAt(std::size_t request, Moment moment) {
    count();
    const std::lock_guard lock(mutex_);
    cut_ = Cut{request, moment};
}

std::vector<std::string> CutLine::requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
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
            Pair& pair = pairs_[i];
            const bool ended = (watched[2 + 2 * i].revents != 0 && !passRequest(pair)) ||
                               (watched[3 + 2 * i].revents != 0 && !passAnswer(pair));
            if (ended) {
                close(pair.client);
                close(pair.server);
            } else {
                alive.push_back(pair);
            }
        }
        pairs_ = std::move(alive);
        if (isCut_) {
            closeAll();
        }
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

/// False when the client has ended or the line is cut.
bool CutLine::passRequest(Pair& pair) {
    const std::string part = received(pair.client);
    if (part.empty() || isCut_) {
        return false;
    }
    const std::lock_guard lock(mutex_);
    if (std::exchange(pair.isAnswered, false)) {
        pair.request = requests_.size();
        if (isCutHere(pair, Moment::beforeRequest)) {
            return false;
        }
        requests_.emplace_back();
    }
    if (pair.request < requests_.size()) {
        requests_[pair.request] += readable(part);
    }
    return send(part, pair.server);
}

/// False when the server has ended or the line is cut.
bool CutLine::passAnswer(Pair& pair) {
    const std::string part = received(pair.server);
    if (part.empty() || isCut_) {
        return false;
    }
    if (isSilent_) {
        return true;
    }
    const std::lock_guard lock(mutex_);
    if (!std::exchange(pair.isAnswered, true) && isCutHere(pair, Moment::beforeAnswer)) {
        return false;
    }
    return send(part, pair.client);
}

/// Cuts the line when a test wants it here.
bool CutLine::isCutHere(const Pair& pair, Moment moment) {
    const bool isHere = cut_ && cut_->request == pair.request && cut_->moment == moment;
    isCut_ = isCut_ || isHere;
    return isHere;
}

void CutLine::closeAll() {
    for (const Pair& pair : pairs_) {
        close(pair.client);
        close(pair.server);
    }
    pairs_.clear();
}

}  // namespace velmora::test
