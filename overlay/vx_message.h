// Messages between the pen, the objects of the overlay and those who listen to them.

#pragma once

#include <cstddef>
#include <cstdint>

#include "overlay/vx_list.h"

namespace ruvex {

/// What has happened.
enum class VxMessageId : std::int32_t {
    PenMoved = 101,
    PenDown = 102,
    PenUp = 103,
    DragBegins = 200,
    ValueChanged = 201,
    DragEnded = 202,
    DragCancelled = 203,
};

/// What the payload of a message holds. Types 5 and 26 would own their data; no message has them.
enum class VxDataType : std::int32_t {
    None = 0,
    Number = 1,
    Owned = 5,
    Position = 6,
    OtherPosition = 7,  ///< Accepted wherever Position is.
    OwnedToo = 26,
};

struct VxPosition {
    float x = 0.0f, y = 0.0f;

    friend bool operator==(const VxPosition&, const VxPosition&) = default;
};

/// A value on the stack of its sender; it ends when `send` returns.
class VxMessage {
public:
    static constexpr std::size_t kNameSize = 16;

    /// `text` (may be null) is cut to 15 characters.
    explicit VxMessage(VxMessageId message, const char* text = nullptr);
    VxMessage(const VxMessage&) = delete;
    VxMessage& operator=(const VxMessage&) = delete;
    /// Ends the process for the data types 5 and 26, whose data nobody would free.
    virtual ~VxMessage();

    void setNumber(std::int32_t number);
    void setPosition(VxPosition position);
    std::int32_t number() const;
    VxPosition position() const;
    bool hasPosition() const {
        return dataType == VxDataType::Position || dataType == VxDataType::OtherPosition;
    }

    char name[kNameSize] = {};
    VxMessageId id;
    VxDataType dataType = VxDataType::None;
    unsigned char payload[8] = {};
};

class VxMessageHandler;

/// Sends messages to the handlers that are connected to it.
class VxMessageSender {
public:
    VxMessageSender() = default;
    VxMessageSender(const VxMessageSender&) = delete;
    VxMessageSender& operator=(const VxMessageSender&) = delete;
    /// Takes itself out of the lists of its handlers.
    virtual ~VxMessageSender();

    /// Hands the message to all handlers, in the order in which they were connected. Allocates
    /// nothing. A handler may disconnect itself or be destroyed by the message. A message that a
    /// handler sends through the same sender ends this one: the handlers behind it are skipped.
    void send(VxMessage& message);

    VxList<VxMessageHandler*> handlers;
};

/// Receives messages from the senders that it is connected to.
class VxMessageHandler {
public:
    VxMessageHandler() = default;
    VxMessageHandler(const VxMessageHandler&) = delete;
    VxMessageHandler& operator=(const VxMessageHandler&) = delete;
    /// Takes itself out of the lists of its senders.
    virtual ~VxMessageHandler();

    /// `sender` is null for a message that comes without a connection.
    virtual void handleMessage(VxMessage* message, VxMessageSender* sender) = 0;

    VxList<VxMessageSender*> senders;
};

/// Connects both, once. Nothing is done if one of them is null.
void connect(VxMessageHandler* handler, VxMessageSender* sender);

}  // namespace ruvex
