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

/// What the payload of a message holds. A message of type 5 or 26 would own data outside the
/// payload; no message has these types.
enum class VxDataType : std::int32_t {
    None = 0,
    Number = 1,
    OwnedType5 = 5,
    Position = 6,
    PositionType7 = 7,  ///< Accepted wherever Position is.
    OwnedType26 = 26,
};

struct VxPosition {
    float x = 0.0f, y = 0.0f;

    friend bool operator==(const VxPosition&, const VxPosition&) = default;
};

/// Lives on the stack of its sender, until `send` returns.
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
        return dataType == VxDataType::Position || dataType == VxDataType::PositionType7;
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

    /// Passes the message to all handlers, in the order in which they were connected. Allocates
    /// nothing. The sender has to survive the call. A handler may disconnect or destroy itself. If
    /// it disconnects or destroys the NEXT handler, the present one gets the message a second time.
    /// If it sends a message through the same sender, the handlers behind it do not get this one.
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

/// Connects both, unless they are connected already. Nothing is done if one of them is null. Throws
/// std::bad_alloc, and then nothing has changed.
void connect(VxMessageHandler* handler, VxMessageSender* sender);

}  // namespace ruvex
