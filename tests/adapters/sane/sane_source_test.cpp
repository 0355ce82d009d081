#include "velmora/adapters/sane/sane_source.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"

#include "adapters/sane/test_device.h"

namespace velmora::scanner {
namespace {

class SaneSourceTest : public ::testing::Test {
  protected:
    Image page(const std::string& lines) {
        device.set("number_of_devices 1\n" + lines);
        auto scanned = source.scan("test:0", watch);
        EXPECT_TRUE(scanned.has_value());
        return scanned.value_or(Image{});
    }
    static bool allAre(const Image& image, std::uint8_t value) {
        return !image.samples.empty() && std::ranges::all_of(image.samples, [=](auto s) { return s == value; });
    }
    std::string refusal(const std::string& name = "test:0") {
        try {
            source.scan(name, watch);
        } catch (const runtime::RuntimeError& e) {
            return e.description();
        }
        return "no error";
    }

    support::TestDevice device;
    SaneSource source;
    Watch watch;
};

TEST_F(SaneSourceTest, ListsWhatTheSystemKnows) {
    device.set("number_of_devices 2\n");
    const auto devices = source.devices(watch);
    ASSERT_EQ(devices.size(), 2u);
    EXPECT_EQ(devices[0].name, "test:0");
    EXPECT_EQ(devices[0].title, "Noname frontend-tester (test:0)");
    EXPECT_EQ(devices[1].name, "test:1");
    device.unplug();
    EXPECT_TRUE(source.devices(watch).empty());
}

TEST_F(SaneSourceTest, ScansInColourAtTwoHundredDots) {
    const Image image = page("mode Gray\ntest-picture \"Solid white\"\n");
    EXPECT_EQ(image.channels, 3);
    EXPECT_EQ(image.dotsPerInchAcross, 200);
    EXPECT_EQ(image.dotsPerInchDown, 200);
    // The bed is 80 by 100 mm.
    EXPECT_NEAR(image.width, 630, 1);
    EXPECT_NEAR(image.height, 787, 1);
    EXPECT_EQ(image.samples.size(), static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height) * 3);
    EXPECT_TRUE(allAre(image, 255));
    EXPECT_EQ(watch.fraction(), 1.0);
}

TEST_F(SaneSourceTest, TakesTheResolutionNearestToTheOneItWants) {
    EXPECT_EQ(page("resolution_min 1\nresolution_max 75\nresolution_quant 1\n").dotsPerInchAcross, 75);
    EXPECT_EQ(page("resolution_min 300\nresolution_max 600\nresolution_quant 100\n").dotsPerInchAcross, 300);
    EXPECT_EQ(page("resolution_min 0\nresolution_max 600\nresolution_quant 150\n").dotsPerInchAcross, 150);
}

TEST_F(SaneSourceTest, EveryDepthAndOrderOfSamplesIsRead) {
    for (const char* depth : {"depth 1\n", "depth 8\n", "depth 16\n"}) {
        EXPECT_TRUE(allAre(page(std::string(depth) + "test-picture \"Solid white\"\n"), 255)) << depth;
        EXPECT_TRUE(allAre(page(std::string(depth) + "test-picture \"Solid black\"\n"), 0)) << depth;
    }
}

TEST_F(SaneSourceTest, ThreePassesMakeTheSamePageAsOne) {
    const std::string pattern = "mode Color\ntest-picture \"Color pattern\"\n";
    const Image one = page(pattern);
    const Image three = page(pattern + "three-pass true\nthree-pass-order GBR\n");
    EXPECT_EQ(three.channels, 3);
    EXPECT_EQ(one.width, three.width);
    EXPECT_EQ(one.height, three.height);
    EXPECT_FALSE(allAre(one, one.samples.at(0)));
    EXPECT_EQ(one.samples, three.samples);
}

TEST_F(SaneSourceTest, AHandScannersPageIsAsLongAsItComes) {
    const Image image = page("hand-scanner true\ntest-picture \"Solid white\"\n");
    EXPECT_GT(image.height, 0);
    EXPECT_NEAR(image.width, 110 / 25.4 * 200, 2);
    EXPECT_TRUE(allAre(image, 255));
}

TEST_F(SaneSourceTest, WastedPixelsAtTheEndOfALineAreNoneOfThePage) {
    const Image image = page("ppl-loss 7\ntest-picture \"Solid white\"\n");
    EXPECT_TRUE(allAre(image, 255));
}

TEST_F(SaneSourceTest, WhatTheDeviceRefusesIsToldInWords) {
    struct Case {
        const char* status;
        const char* text;
    };
    for (const Case& c : {Case{"SANE_STATUS_JAMMED", "El papel está atascado en el escáner."},
                          Case{"SANE_STATUS_NO_DOCS", "No hay papel en el escáner."},
                          Case{"SANE_STATUS_COVER_OPEN", "La tapa del escáner está abierta."},
                          Case{"SANE_STATUS_DEVICE_BUSY", "El escáner está ocupado. Inténtelo más tarde."},
                          Case{"SANE_STATUS_IO_ERROR", "Error de comunicación con el escáner."},
                          Case{"SANE_STATUS_ACCESS_DENIED", "No hay permiso para usar el escáner."}}) {
        device.set(std::string("number_of_devices 1\nread-status-code \"") + c.status + "\"\n");
        EXPECT_EQ(refusal(), c.text);
    }
    device.set("number_of_devices 1\n");
    EXPECT_EQ(refusal("test:7"), "El escáner no existe o no admite lo que se le pide.");
}

TEST_F(SaneSourceTest, CancellingAtTheDeviceOrHereGivesNoPage) {
    device.set("number_of_devices 1\nread-status-code \"SANE_STATUS_CANCELLED\"\n");
    EXPECT_FALSE(source.scan("test:0", watch).has_value());
    device.set("number_of_devices 1\n");
    watch.cancel();
    EXPECT_FALSE(source.scan("test:0", watch).has_value());
}

}  // namespace
}  // namespace velmora::scanner
