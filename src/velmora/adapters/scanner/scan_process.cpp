#include "velmora/adapters/scanner/scan_process.h"

#include <QProcess>
#include <utility>

#include "velmora/platform/runtime/errors.h"

namespace velmora::scanner {

namespace {

constexpr long fileNotFound = 53;
constexpr long deviceError = 57;
constexpr int waitForOutput = 40;  // milliseconds

/// The running process; it never outlives the operation that started it.
class Running {
  public:
    Running(const std::string& program, const std::vector<std::string>& arguments, std::chrono::milliseconds grace)
        : grace_(static_cast<int>(grace.count())) {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        QStringList list;
        for (const std::string& argument : arguments) {
            list.append(QString::fromStdString(argument));
        }
        process_.start(QString::fromStdString(program), list);
        if (!process_.waitForStarted()) {
            throw runtime::RuntimeError(fileNotFound, "No se puede iniciar el programa que habla con el escáner:\n" +
                                                          program + "\n\n" + process_.errorString().toStdString());
        }
    }
    /// Asks the process to end, and kills it when it does not.
    ~Running() {
        process_.closeWriteChannel();
        if (process_.state() != QProcess::NotRunning && !process_.waitForFinished(grace_)) {
            process_.kill();
            process_.waitForFinished(grace_);
        }
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    /// Its output since the last call, after a short wait; nullopt when it has ended and everything has been read.
    std::optional<QByteArray> read() {
        process_.waitForReadyRead(waitForOutput);
        QByteArray piece = process_.readAllStandardOutput();
        return piece.isEmpty() && process_.state() == QProcess::NotRunning ? std::nullopt
                                                                           : std::optional(std::move(piece));
    }

  private:
    int grace_;  ///< milliseconds
    QProcess process_;
};

}  // namespace

bool ScanProcess::run(const std::vector<std::string>& arguments, AnswerReader& answer, const Watch& watch) const {
    Running process(program_, arguments, grace_);
    while (!answer.whole()) {
        if (watch.cancelled()) {
            return false;
        }
        const auto piece = process.read();
        if (!piece) {
            throw runtime::RuntimeError(deviceError,
                                        "El programa que habla con el escáner ha terminado de forma inesperada.");
        }
        answer.take({piece->constData(), static_cast<std::size_t>(piece->size())});
    }
    return true;
}

std::vector<Device> ScanProcess::devices(Watch& watch) {
    AnswerReader answer(watch);
    return run({"list"}, answer, watch) ? answer.devices() : std::vector<Device>{};
}

std::optional<Image> ScanProcess::scan(const std::string& device, Watch& watch) {
    AnswerReader answer(watch);
    return run({"scan", device}, answer, watch) ? std::move(answer.page()) : std::nullopt;
}

}  // namespace velmora::scanner
