#include "runtime/frame_server.h"

#include <gtest/gtest.h>
#include <stdexcept>

#include "runtime/images.h"

namespace ruvex::runtime {
namespace {

struct OneImage final : InputProvider {
    ComPtr<IDSImage> imageAt(double seconds) override {
        if (seconds > 100.0) throw std::runtime_error("the file ends there");
        asked = seconds;
        return seconds < 0.0 ? nullptr : ComPtr<IDSImage>(makeImage(2, 2, MFIF_RGBA_RAW_32));
    }

    double asked = -99.0;
};

TEST(FrameServer, ServesTheInputAtATime) {
    const auto provider = std::make_shared<OneImage>();
    const auto server = FrameServer::create(provider, nullptr);
    ComPtr<IUnknown> frame;
    EXPECT_EQ(server->GetInputFrame(nullptr, 0, 2.5, frame.put()), S_OK);
    EXPECT_EQ(provider->asked, 2.5);
    EXPECT_TRUE(frame.query<IDSImage>());
    frame->AddRef();
    EXPECT_EQ(frame->Release(), 1u);
}

TEST(FrameServer, RefusesWhatItCannotServe) {
    const auto server = FrameServer::create(std::make_shared<OneImage>(), nullptr);
    IUnknown* frame = nullptr;
    EXPECT_TRUE(FAILED(server->GetInputFrame(nullptr, 0, -1.0, &frame)));
    EXPECT_TRUE(FAILED(server->GetInputFrame(nullptr, 1, 1.0, &frame)));
    EXPECT_TRUE(FAILED(server->GetInputFrame(nullptr, 0, 101.0, &frame)));
    EXPECT_EQ(frame, nullptr);
    EXPECT_EQ(server->GetInputFrame(nullptr, 0, 1.0, nullptr), E_POINTER);
    const auto empty = FrameServer::create(nullptr, nullptr);
    EXPECT_TRUE(FAILED(empty->GetInputFrame(nullptr, 0, 1.0, &frame)));
}

TEST(FrameServer, RemembersThatItReportedAStop) {
    bool stop = false;
    const auto server = FrameServer::create(nullptr, [&] { return stop; });
    EXPECT_EQ(server->QueryInterruption(), S_OK);
    stop = true;
    EXPECT_FALSE(server->interrupted());
    EXPECT_NE(server->QueryInterruption(), S_OK);
    stop = false;
    EXPECT_EQ(server->QueryInterruption(), S_OK);
    EXPECT_TRUE(server->interrupted());
    server->resetInterrupted();
    EXPECT_FALSE(server->interrupted());
}

TEST(FrameServer, NothingInterruptsWithoutATest) {
    const auto server = FrameServer::create(nullptr, nullptr);
    EXPECT_EQ(server->QueryInterruption(), S_OK);
    EXPECT_FALSE(server->interrupted());
    EXPECT_TRUE(server.query<IDSEffectHost>());
    EXPECT_FALSE(server.query<IDSImage>());
}

}  // namespace
}  // namespace ruvex::runtime
