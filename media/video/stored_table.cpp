#include "media/video/stored_table.h"

#include <algorithm>
#include <limits>
#include <string>

#include "files/file_error.h"
#include "files/read_file.h"
#include "media/av_library.h"
#include "media/digest.h"

namespace ruvex::media {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFormat = "ruvex index 1";
constexpr std::size_t kBytesOfNumber = 8;
constexpr int kBitsOfOctet = 8;
/// Eleven million pictures, which are more than two days at 60 frames a second.
constexpr std::size_t kMostStoredBytes = std::size_t{256} << 20;

/// In a row of numbers: timed, the unit's two terms, and how many rates are declared. Then two
/// terms a rate, and three numbers a picture.
constexpr std::size_t kNumbersBefore = 4;
constexpr std::size_t kNumbersOfRate = 2;
constexpr std::size_t kNumbersOfPicture = 3;
constexpr std::int64_t kMostDeclared = 2;

/// Units. Times within this are subtracted without overflow.
constexpr std::int64_t kFurthestTime = std::int64_t{1} << 61;
/// Seconds: 68 years. Their number of frames at any rate fits 64 bits.
constexpr double kLongestClip = 2147483648.0;

void addNumber(std::vector<std::byte>& bytes, std::int64_t number) {
    for (std::size_t i = 0; i < kBytesOfNumber; ++i) {
        bytes.push_back(
            static_cast<std::byte>(static_cast<std::uint64_t>(number) >> (kBitsOfOctet * i)));
    }
}

std::vector<std::int64_t> numbersOf(std::span<const std::byte> bytes) {
    std::vector<std::int64_t> numbers(bytes.size() / kBytesOfNumber);
    for (std::size_t i = 0; i < numbers.size() * kBytesOfNumber; ++i) {
        const std::uint64_t octet = std::to_integer<std::uint64_t>(bytes[i])
                                    << (kBitsOfOctet * (i % kBytesOfNumber));
        std::int64_t& number = numbers[i / kBytesOfNumber];
        number = static_cast<std::int64_t>(static_cast<std::uint64_t>(number) | octet);
    }
    return numbers;
}

/// A fraction above 0 in the terms that containers have.
std::optional<Rational> fractionOf(std::span<const std::int64_t> terms) {
    const auto fits = [](std::int64_t term) {
        return term > 0 && term <= std::numeric_limits<std::int32_t>::max();
    };
    if (!fits(terms[0]) || !fits(terms[1])) return std::nullopt;
    return makeRational(terms[0], terms[1]);
}

bool isFlag(std::int64_t number) {
    return number == 0 || number == 1;
}

/// Whether times are in order, and in a range in which rates can be found for them.
bool canBeTimed(const PictureTable& table) {
    const auto& pictures = table.pictures;
    const auto outOfOrder = [](const ListedPicture& a, const ListedPicture& b) {
        return a.time >= b.time;
    };
    const auto inRange = [](const ListedPicture& picture) {
        return picture.time >= -kFurthestTime && picture.time <= kFurthestTime &&
               picture.duration >= 0 && picture.duration <= kFurthestTime;
    };
    if (!std::ranges::all_of(pictures, inRange)) return false;
    const std::int64_t units = pictures.back().time - pictures.front().time;
    return std::ranges::adjacent_find(pictures, outOfOrder) == pictures.end() &&
           static_cast<double>(units) * table.unit.value() <= kLongestClip;
}

std::string digestOfTable(std::span<const std::byte> bytes, const files::FileStamp& clip) {
    Digest digest;
    digest.add(std::string_view(kFormat));
    digest.add(libraryVersion());
    digest.add(std::to_string(clip.bytes));
    digest.add(std::to_string(clip.modified));
    digest.add(bytes);
    return digest.finish();
}

}  // namespace

std::vector<std::byte> bytesOfTable(const PictureTable& table) {
    std::vector<std::byte> bytes;
    bytes.reserve(kBytesOfNumber * (kNumbersBefore + kNumbersOfRate * table.declared.size() +
                                    kNumbersOfPicture * table.pictures.size()));
    const auto add = [&bytes](std::int64_t number) { addNumber(bytes, number); };
    add(table.timed ? 1 : 0);
    add(table.unit.num);
    add(table.unit.den);
    add(std::ssize(table.declared));
    for (const Rational& rate : table.declared) {
        add(rate.num);
        add(rate.den);
    }
    for (const ListedPicture& picture : table.pictures) {
        add(picture.time);
        add(picture.duration);
        add(picture.key ? 1 : 0);
    }
    return bytes;
}

std::optional<PictureTable> tableOfBytes(std::span<const std::byte> bytes) {
    const std::vector<std::int64_t> numbers = numbersOf(bytes);
    std::span<const std::int64_t> rest(numbers);
    if (bytes.size() % kBytesOfNumber != 0 || rest.size() < kNumbersBefore) return std::nullopt;
    const auto unit = fractionOf(rest.subspan(1, 2));
    const std::int64_t declared = rest[3];
    if (!isFlag(rest[0]) || !unit || declared < 0 || declared > kMostDeclared) return std::nullopt;
    PictureTable table{.pictures = {}, .timed = rest[0] == 1, .unit = *unit, .declared = {}};
    rest = rest.subspan(kNumbersBefore);
    const std::size_t ofRates = kNumbersOfRate * static_cast<std::size_t>(declared);
    if (rest.size() <= ofRates || (rest.size() - ofRates) % kNumbersOfPicture != 0) {
        return std::nullopt;
    }
    for (; table.declared.size() < static_cast<std::size_t>(declared);
         rest = rest.subspan(kNumbersOfRate)) {
        const auto rate = fractionOf(rest.first(kNumbersOfRate));
        if (!rate) return std::nullopt;
        table.declared.push_back(*rate);
    }
    table.pictures.reserve(rest.size() / kNumbersOfPicture);
    for (; !rest.empty(); rest = rest.subspan(kNumbersOfPicture)) {
        if (!isFlag(rest[2])) return std::nullopt;
        table.pictures.push_back({rest[0], rest[1], rest[2] == 1});
    }
    if (table.timed && !canBeTimed(table)) return std::nullopt;
    return table;
}

std::vector<std::byte> storedTable(const PictureTable& table, const files::FileStamp& clip) {
    const std::vector<std::byte> bytes = bytesOfTable(table);
    const std::string digest = digestOfTable(bytes, clip);
    const auto digits = std::as_bytes(std::span(digest));
    std::vector<std::byte> stored(digits.begin(), digits.end());
    stored.insert(stored.end(), bytes.begin(), bytes.end());
    return stored;
}

std::optional<PictureTable> readStoredTable(const fs::path& file, const files::FileStamp& clip) {
    std::error_code ignored;
    if (!fs::is_regular_file(file, ignored)) return std::nullopt;
    try {
        const std::vector<std::byte> stored = files::readWhole(file, kMostStoredBytes);
        const std::size_t digits = std::min(stored.size(), kDigitsOfDigest);
        const auto bytes = std::span(stored).subspan(digits);
        const std::string digest = digestOfTable(bytes, clip);
        const auto found = std::span(stored).first(digits);
        if (!std::ranges::equal(found, std::as_bytes(std::span(digest)))) return std::nullopt;
        return tableOfBytes(bytes);
    } catch (const files::FileError&) {
        return std::nullopt;
    }
}

}  // namespace ruvex::media
