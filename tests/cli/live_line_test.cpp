#include "cli/live_line.h"

#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace ruvex::cli {
namespace {

/// A terminal of so many columns, and a stream to it.
class Terminal {
public:
    explicit Terminal(unsigned short columns) : other_(posix_openpt(O_RDWR | O_NOCTTY)) {
        EXPECT_EQ(grantpt(other_), 0);
        EXPECT_EQ(unlockpt(other_), 0);
        resize(columns);
        stream_ = fdopen(open(ptsname(other_), O_RDWR | O_NOCTTY), "w");
    }
    ~Terminal() {
        std::fclose(stream_);
        close(other_);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    std::FILE* stream() const { return stream_; }
    void resize(unsigned short columns) const {
        const winsize size{.ws_row = 24, .ws_col = columns, .ws_xpixel = 0, .ws_ypixel = 0};
        EXPECT_EQ(ioctl(other_, TIOCSWINSZ, &size), 0);
    }
    /// What was written since the last call.
    std::string shown() const {
        char text[1000];
        const ssize_t count = read(other_, text, sizeof(text));
        return {text, count > 0 ? static_cast<std::size_t>(count) : 0};
    }

private:
    int other_;
    std::FILE* stream_ = nullptr;
};

TEST(LiveLine, IsCutToTheTerminal) {
    const Terminal terminal(10);
    LiveLine line(terminal.stream());
    ASSERT_TRUE(line.onTerminal());
    // The last column stays free: a letter there would move the cursor to the next line.
    line.show("0123456789abc");
    EXPECT_EQ(terminal.shown(), "\r012345678");
    line.show("abc");
    EXPECT_EQ(terminal.shown(), "\rabc      ");
    line.show("ab");
    EXPECT_EQ(terminal.shown(), "\rab ");
    terminal.resize(20);
    line.show("0123456789abc");
    EXPECT_EQ(terminal.shown(), "\r0123456789abc");
    terminal.resize(6);
    line.show("x");
    EXPECT_EQ(terminal.shown(), "\rx    ") << "spaces would begin another line too";
    line.end();
    EXPECT_EQ(terminal.shown(), "\r\n");
    line.end();
    line.show("y");
    EXPECT_EQ(terminal.shown(), "\ry") << "the second end wrote nothing";
}

TEST(LiveLine, OfATerminalWithoutAWidthIsNotCut) {
    const Terminal terminal(0);
    LiveLine line(terminal.stream());
    line.show(std::string(200, 'x'));
    EXPECT_EQ(terminal.shown(), "\r" + std::string(200, 'x'));
}

TEST(LiveLine, IsForTerminalsAlone) {
    std::FILE* const file = std::tmpfile();
    EXPECT_FALSE(LiveLine(file).onTerminal());
    std::fclose(file);
}

TEST(LiveLine, IsCutBetweenLetters) {
    EXPECT_EQ(cutToColumns("abc", 3), "abc");
    EXPECT_EQ(cutToColumns("abc", 2), "ab");
    EXPECT_EQ(cutToColumns("\u00e9\u00e9\u00e9", 2), "\u00e9\u00e9");
    EXPECT_EQ(cutToColumns("", 2), "");
    EXPECT_EQ(cutToColumns("abc", 0), "");
}

}  // namespace
}  // namespace ruvex::cli
