// What an editor tells about its current time.

#pragma once

namespace ruvex::runtime {

class Editor;

/// The order in which followers are told; those of one kind in the order in which they were made.
enum class TimeOrder { Page, Viewer };

/// Is told by Editor::setTime that the current time has changed. The editor outlives it.
class TimeFollower {
public:
    TimeFollower(const TimeFollower&) = delete;
    TimeFollower& operator=(const TimeFollower&) = delete;

protected:
    TimeFollower(Editor& editor, TimeOrder order);
    virtual ~TimeFollower() { stopFollowing(); }

    Editor& editor() const { return editor_; }
    /// Afterwards `tellTime` is not called any more. A derived class's destructor begins with it if
    /// it calls others, which may set the time.
    void stopFollowing();

private:
    friend class Editor;

    /// May make and destroy followers, this one included.
    virtual void tellTime() = 0;

    Editor& editor_;
    TimeOrder order_;
};

}  // namespace ruvex::runtime
