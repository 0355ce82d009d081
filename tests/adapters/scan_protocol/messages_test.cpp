#include "velmora/adapters/scan_protocol/messages.h"

#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"

namespace velmora::scanner {
namespace {

const std::string notUnderstood = "El programa que habla con el escáner da una respuesta que no se entiende.";

Image smallPage() {
    return {.width = 2,
            .height = 2,
            .channels = 3,
            .dotsPerInchAcross = 200,
            .dotsPerInchDown = 199.5,
            .samples = {1, 2, 3, '\n', '\t', '\\', 7, 8, 9, 0, 255, 12}};
}

std::string samplesOf(const Image& page) {
    return {page.samples.begin(), page.samples.end()};
}

class MessagesTest : public ::testing::Test {
  protected:
    std::string refusal(const std::string& text) {
        AnswerReader fresh(watch);
        try {
            fresh.take(text);
        } catch (const runtime::RuntimeError& e) {
            return e.description();
        }
        return "no error";
    }

    Watch watch;
    AnswerReader reader{watch};
};

TEST_F(MessagesTest, DevicesAreReadAsTheyAreWritten) {
    reader.take(message::greeting() + message::device({"net:a\tb", "Two\nlines \\ and a tab\t"}) +
                message::device({"test:0", "Escáner"}));
    EXPECT_FALSE(reader.whole());
    reader.take(message::end());
    EXPECT_TRUE(reader.whole());
    ASSERT_EQ(reader.devices().size(), 2u);
    EXPECT_EQ(reader.devices()[0].name, "net:a\tb");
    EXPECT_EQ(reader.devices()[0].title, "Two\nlines \\ and a tab\t");
    EXPECT_EQ(reader.devices()[1].title, "Escáner");
    EXPECT_FALSE(reader.page().has_value());
}

TEST_F(MessagesTest, APageIsReadWhereverItsBytesAreCut) {
    const Image page = smallPage();
    const std::string answer =
        message::greeting() + message::progress(0.5) + message::page(page) + samplesOf(page) + message::end();
    for (std::size_t size = 1; size <= answer.size(); ++size) {
        AnswerReader cut(watch);
        for (std::size_t at = 0; at < answer.size(); at += size) {
            EXPECT_FALSE(cut.whole());
            cut.take(std::string_view(answer).substr(at, size));
        }
        ASSERT_TRUE(cut.whole() && cut.page()) << size;
        EXPECT_EQ(cut.page()->samples, page.samples) << size;
        EXPECT_EQ(cut.page()->width, 2);
        EXPECT_EQ(cut.page()->height, 2);
        EXPECT_EQ(cut.page()->channels, 3);
        EXPECT_EQ(cut.page()->dotsPerInchAcross, 200);
        EXPECT_EQ(cut.page()->dotsPerInchDown, 199.5);
    }
}

TEST_F(MessagesTest, EveryMessageAdvancesTheWatch) {
    std::size_t beats = watch.beats();
    const auto advances = [&](const std::string& text) {
        reader.take(text);
        return std::exchange(beats, watch.beats()) != watch.beats();
    };
    EXPECT_TRUE(advances(message::greeting()));
    EXPECT_TRUE(advances(message::progress(std::nullopt)));
    EXPECT_EQ(watch.fraction(), std::nullopt);
    EXPECT_TRUE(advances(message::progress(0.25)));
    EXPECT_EQ(watch.fraction(), 0.25);
    EXPECT_TRUE(advances(message::page(smallPage())));
    EXPECT_TRUE(advances("12"));
    EXPECT_EQ(watch.fraction(), 0.25);
}

TEST_F(MessagesTest, AnErrorComesBackWithItsNumberAndItsWords) {
    reader.take(message::greeting());
    try {
        reader.take(message::error(57, "El papel está atascado.\nÁbralo."));
        FAIL() << "no error";
    } catch (const runtime::RuntimeError& e) {
        EXPECT_EQ(e.number(), 57);
        EXPECT_EQ(e.description(), "El papel está atascado.\nÁbralo.");
    }
}

TEST_F(MessagesTest, AnotherVersionIsToldApart) {
    EXPECT_EQ(refusal("velmora-scan\t2\n"), "El programa que habla con el escáner es de otra versión.");
}

TEST_F(MessagesTest, WhatIsNotOfTheProtocolIsRefused) {
    const std::string hello = message::greeting();
    for (const std::string& text : {std::string("\n"),
                                    std::string("hello\n"),
                                    message::end(),
                                    hello + hello,
                                    hello + "other\t1\n",
                                    hello + "end\t1\n",
                                    hello + message::end() + message::end(),
                                    hello + "device\tname\n",
                                    hello + "device\tname\ttitle\\\n",
                                    hello + "device\tname\tti\\xtle\n",
                                    hello + "progress\thalf\n",
                                    hello + "progress\t0.5x\n",
                                    hello + "error\tx\ttext\n",
                                    hello + "page\t0\t2\t3\t200\t200\n",
                                    hello + "page\t2\t-2\t3\t200\t200\n",
                                    hello + "page\t2\t2\t2\t200\t200\n",
                                    hello + "page\t2\t2\t3\t0\t200\n",
                                    hello + "page\t2\t2\t3\t200\tinf\n",
                                    hello + "page\t2000000000\t2000000000\t3\t200\t200\n",
                                    hello + std::string(70'000, 'x')}) {
        EXPECT_EQ(refusal(text), notUnderstood) << text.substr(0, 60);
    }
}

}  // namespace
}  // namespace velmora::scanner
