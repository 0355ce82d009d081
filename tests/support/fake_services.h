#pragma once
// A machine whose dialogs and programs a test scripts.

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/system/system.h"

#include "support/temporary_folder.h"

namespace velmora::support {

class FakeServices final : public system::Services {
  public:
    FakeServices() = default;
    /// Its temporary folder is this one.
    explicit FakeServices(const TemporaryFolder& own) : folder(own.withSeparator()) {}

    std::string temporaryFolder() const override { return folder; }
    std::optional<std::string> openFileDialog(const system::OpenFileRequest& request) override {
        requests.push_back(request);
        if (dialogError) {
            throw *dialogError;
        }
        if (files.empty()) {
            ADD_FAILURE() << "nobody answered the dialog " << request.title;
            return std::nullopt;
        }
        auto answer = files.front();
        files.pop_front();
        return answer;
    }
    int openWithAssociatedProgram(std::string_view path) override {
        opened.emplace_back(path);
        if (openingError) {
            throw *openingError;
        }
        return openingCode;
    }
    bool copyToClipboard(std::string_view text) override {
        copied.emplace_back(text);
        return true;
    }

    std::string folder;                            ///< with a trailing separator
    std::deque<std::optional<std::string>> files;  ///< the answers of the dialogs to come; nullopt: cancelled
    std::vector<system::OpenFileRequest> requests;
    std::vector<std::string> opened;
    std::vector<std::string> copied;
    int openingCode = 33;  ///< above 32: opened
    std::optional<runtime::RuntimeError> dialogError;
    std::optional<runtime::RuntimeError> openingError;
};

}  // namespace velmora::support
