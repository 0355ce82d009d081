#pragma once
// The screen and the machine of the program that plays the story, for components of the host: their messages and opened
// files stand in the story's output.

#include <memory>

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/system/system.h"

#include "face.h"

namespace velmora::wine_host {

/// Shows no forms and no search windows: those of a component must be in the program that plays. Error 5.
class PlayerScreen final : public screen::Screen {
  public:
    /// The player's object must outlive it.
    explicit PlayerScreen(IDispatch& player) : player_(player) {}
    void showModal(screen::Form& form) override;
    screen::Answer show(const screen::MessageBox& box) override;
    std::optional<std::size_t> search(const screen::SearchWindow& window) override;
    void setPointer(screen::Pointer) override {}
    void processEvents() override {}

  private:
    IDispatch& player_;
};

class PlayerServices final : public system::Services {
  public:
    /// `folder` with a trailing separator.
    PlayerServices(IDispatch& player, std::string folder) : player_(player), folder_(std::move(folder)) {}
    std::string temporaryFolder() const override { return folder_; }
    /// No component of the host asks for a file. Error 5.
    std::optional<std::string> openFileDialog(const system::OpenFileRequest& request) override;
    int openWithAssociatedProgram(std::string_view path) override;

  private:
    IDispatch& player_;
    std::string folder_;
};

}  // namespace velmora::wine_host
