#include "player.h"

#include <array>
#include <fstream>

#include "velmora/adapters/com/host_connection.h"
#include "velmora/adapters/script/interpreter.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/system/file_path.h"

#include "hosted_instance.h"
#include "story_desk.h"

namespace velmora::stories {

namespace {

/// Error 91 before Open.
StoryDesk& desk() {
    if (currentDesk == nullptr) {
        runtime::raise(runtime::objectNotSet);
    }
    return *currentDesk;
}

/// The faults happen at the host, so that they cross the border like those of a real connection.
class HostFaults final : public script::Faults {
  public:
    explicit HostFaults(com::LateObject host) : host_(std::move(host)) {}
    void refuseNext(std::string text) override { host_.call("RefuseNext", {com::Variant::text(text)}); }
    void lose() override { host_.call("Lose"); }

  private:
    com::LateObject host_;
};

std::string text(com::Call& call, std::size_t position) {
    return call.value(position).toText();
}

}  // namespace

std::span<const com::Member<Player>> Player::members() {
    using com::Member;
    static constexpr std::array table{
        Member<Player>{.name = L"Open", .id = 1, .fewest = 4, .most = 4, .run = &Player::open},
        Member<Player>{.name = L"Play", .id = 2, .fewest = 2, .most = 2, .run = &Player::play},
        Member<Player>{.name = L"Line", .id = 3, .fewest = 1, .most = 1, .run = &Player::line},
        Member<Player>{.name = L"Opened", .id = 4, .fewest = 1, .most = 1, .run = &Player::opened},
        Member<Player>{.name = L"Show", .id = 5, .fewest = 5, .most = 5, .run = &Player::show},
    };
    return table;
}

void Player::open(com::Call& call) {
    script_ = text(call, 0);
    currentDesk = std::make_unique<StoryDesk>(system::filePath(text(call, 1)), system::filePath(text(call, 3)),
                                              script::momentFrom(text(call, 2)));
}

void Player::play(com::Call& call) {
    StoryDesk& story = desk();
    const com::LateObject host(call.object(1));
    HostFaults faults(host);
    com::HostConnection engine(host.getObject("Engine"));
    HostedInstance instance(com::LateObject(call.object(0)), story.ending());
    const script::Operations operations = script::operationsOf(instance);

    const auto path = system::filePath(script_);
    std::ifstream in(path, std::ios::binary);
    script::ScriptReader reader(in);
    const auto tell = [&](std::string_view reason) { host.call("Tell", {com::Variant::text(reason)}); };
    script::Interpreter interpreter({story.journal(), story.answers(), story.screen(), faults, engine, operations},
                                    reader, tell);
    call.answer(sql::Value(static_cast<int>(interpreter.run())));
    story.flush();
}

void Player::line(com::Call& call) {
    desk().journal().line(text(call, 0));
}

void Player::opened(com::Call& call) {
    call.answer(sql::Value(desk().services().openWithAssociatedProgram(text(call, 0))));
}

void Player::show(com::Call& call) {
    const screen::MessageBox box{.text = text(call, 0),
                                 .icon = static_cast<screen::Icon>(call.value(2).toLong()),
                                 .buttons = static_cast<screen::Buttons>(call.value(3).toLong()),
                                 .title = text(call, 1),
                                 .defaultButton = call.value(4).toLong()};
    call.answer(sql::Value(static_cast<int>(desk().watchedScreen().show(box))));
}

}  // namespace velmora::stories
