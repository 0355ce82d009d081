#include "player_desk.h"

#include "velmora/platform/runtime/errors.h"

#include "late.h"

namespace velmora::wine_host {

void PlayerScreen::showModal(screen::Form&) {
    runtime::raise(runtime::invalidProcedureCall);
}

screen::Answer PlayerScreen::show(const screen::MessageBox& box) {
    const Held answer = call(player_, "Show", box.text, box.title, static_cast<int>(box.icon),
                             static_cast<int>(box.buttons), box.defaultButton);
    return static_cast<screen::Answer>(answer.value().toLong());
}

std::optional<std::size_t> PlayerScreen::search(const screen::SearchWindow&) {
    runtime::raise(runtime::invalidProcedureCall);
}

std::optional<std::string> PlayerServices::openFileDialog(const system::OpenFileRequest&) {
    runtime::raise(runtime::invalidProcedureCall);
}

int PlayerServices::openWithAssociatedProgram(std::string_view path) {
    return call(player_, "Opened", std::string(path)).value().toLong();
}

}  // namespace velmora::wine_host
