// Picture files, by the system's imaging component.

#include <algorithm>
// clang-format off
#include <windows.h>
#include <wincodec.h>  // needs the names of windows.h
// clang-format on

#include "runtime/error.h"
#include "sdk/com/com_ptr.h"
#include "sdk/com/utf8.h"
#include "tools/page_host/picture.h"
#include "tools/page_host/whole_file.h"

namespace ruvex::page_host {
namespace {

using runtime::require;

std::string nameOf(const std::filesystem::path& file) {
    return toUtf8(file.wstring());
}

ComPtr<IWICImagingFactory> imagingFactory() {
    ComPtr<IWICImagingFactory> factory;
    require(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                             __uuidof(IWICImagingFactory), factory.putVoid()),
            "the system cannot read or write pictures");
    return factory;
}

/// The rows of such a file are stored from the top down.
void swapRows(Picture& picture) {
    const int rowBytes = 4 * picture.width;
    for (int low = 0, high = picture.height - 1; low < high; ++low, --high) {
        std::swap_ranges(picture.row(low), picture.row(low) + rowBytes, picture.row(high));
    }
}

ComPtr<IWICBitmapSource> openFile(IWICImagingFactory& factory, const std::filesystem::path& file) {
    const std::string what = "cannot read the picture " + nameOf(file);
    ComPtr<IWICBitmapDecoder> decoder;
    require(factory.CreateDecoderFromFilename(file.c_str(), nullptr, GENERIC_READ,
                                              WICDecodeMetadataCacheOnDemand, decoder.put()),
            what);
    ComPtr<IWICBitmapFrameDecode> frame;
    require(decoder->GetFrame(0, frame.put()), what);
    ComPtr<IWICFormatConverter> converter;
    require(factory.CreateFormatConverter(converter.put()), what);
    require(
        converter->Initialize(frame.get(), GUID_WICPixelFormat32bppRGBA, WICBitmapDitherTypeNone,
                              nullptr, 0.0, WICBitmapPaletteTypeCustom),
        what);
    return ComPtr<IWICBitmapSource>(converter.get());
}

ComPtr<IWICBitmap> bitmapOf(IWICImagingFactory& factory, Picture& topDown,
                            const std::string& what) {
    const auto width = static_cast<UINT>(topDown.width);
    ComPtr<IWICBitmap> bitmap;
    require(factory.CreateBitmapFromMemory(
                width, static_cast<UINT>(topDown.height), GUID_WICPixelFormat32bppRGBA, 4 * width,
                static_cast<UINT>(topDown.bytes.size()), topDown.bytes.data(), bitmap.put()),
            what);
    return bitmap;
}

/// The file is closed when this returns.
void encodePng(const std::filesystem::path& file, Picture& topDown, const std::string& what) {
    const auto factory = imagingFactory();
    ComPtr<IWICStream> stream;
    require(factory->CreateStream(stream.put()), what);
    require(stream->InitializeFromFilename(file.c_str(), GENERIC_WRITE), what);
    ComPtr<IWICBitmapEncoder> encoder;
    require(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.put()), what);
    require(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache), what);
    ComPtr<IWICBitmapFrameEncode> frame;
    require(encoder->CreateNewFrame(frame.put(), nullptr), what);
    require(frame->Initialize(nullptr), what);
    require(frame->SetSize(static_cast<UINT>(topDown.width), static_cast<UINT>(topDown.height)),
            what);
    // The encoder converts from the bitmap's pixels to those that it writes.
    require(frame->WriteSource(bitmapOf(*factory, topDown, what).get(), nullptr), what);
    require(frame->Commit(), what);
    require(encoder->Commit(), what);
}

}  // namespace

Picture readPicture(const std::filesystem::path& file) {
    if (!std::filesystem::is_regular_file(file)) {
        throw runtime::Error("there is no picture " + nameOf(file));
    }
    const auto factory = imagingFactory();
    const auto source = openFile(*factory, file);
    const std::string what = "cannot read the picture " + nameOf(file);
    UINT width = 0;
    UINT height = 0;
    require(source->GetSize(&width, &height), what);
    constexpr UINT kLongestSide = 16384;
    if (width == 0 || height == 0 || width > kLongestSide || height > kLongestSide) {
        throw runtime::Error(what + ": its size is " + std::to_string(width) + "x" +
                             std::to_string(height));
    }
    Picture picture(static_cast<int>(width), static_cast<int>(height));
    require(source->CopyPixels(nullptr, 4 * width, static_cast<UINT>(picture.bytes.size()),
                               picture.bytes.data()),
            what);
    swapRows(picture);
    picture.name = file.filename().wstring();
    return picture;
}

void writePicture(const std::filesystem::path& file, const Picture& picture) {
    Picture topDown = picture;
    swapRows(topDown);
    const std::string what = "cannot write the picture " + nameOf(file);
    writeWholeFile(file, [&](const std::filesystem::path& unfinished) {
        encodePng(unfinished, topDown, what);
    });
}

}  // namespace ruvex::page_host
