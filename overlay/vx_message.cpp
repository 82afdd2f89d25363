#include "overlay/vx_message.h"

#include <cstdlib>
#include <cstring>

namespace ruvex {
namespace {

/// False if the list has the item already.
template <class T>
bool appendOnce(VxList<T>& list, T item) {
    if (list.find(item)) return false;
    list.append(item);
    return true;
}

}  // namespace

VxMessage::VxMessage(VxMessageId message, const char* text) : id(message) {
    if (text) std::strncpy(name, text, kNameSize - 1);
}

VxMessage::~VxMessage() {
    if (dataType == VxDataType::OwnedType5 || dataType == VxDataType::OwnedType26) std::abort();
}

void VxMessage::setNumber(std::int32_t number) {
    dataType = VxDataType::Number;
    std::memcpy(payload, &number, sizeof number);
}

void VxMessage::setPosition(VxPosition position) {
    dataType = VxDataType::Position;
    std::memcpy(payload, &position, sizeof position);
}

std::int32_t VxMessage::number() const {
    std::int32_t number = 0;
    std::memcpy(&number, payload, sizeof number);
    return number;
}

VxPosition VxMessage::position() const {
    VxPosition position;
    std::memcpy(static_cast<void*>(&position), payload, sizeof position);
    return position;
}

VxMessageSender::~VxMessageSender() {
    while (handlers.head) {
        VxMessageHandler* const handler = handlers.head->item;
        handlers.removeAll(handler);
        if (handler) handler->senders.removeAll(this);
    }
}

void VxMessageSender::send(VxMessage& message) {
    handlers.walk([&](VxMessageHandler* handler) {
        if (!handler) return false;
        handler->handleMessage(&message, this);
        return true;
    });
}

VxMessageHandler::~VxMessageHandler() {
    while (senders.head) {
        VxMessageSender* const sender = senders.head->item;
        senders.removeAll(sender);
        if (sender) sender->handlers.removeAll(this);
    }
}

void connect(VxMessageHandler* handler, VxMessageSender* sender) {
    if (!handler || !sender) return;
    const bool isNew = appendOnce(sender->handlers, handler);
    try {
        appendOnce(handler->senders, sender);
    } catch (...) {
        if (isNew) sender->handlers.remove(sender->handlers.tail);
        throw;
    }
}

}  // namespace ruvex
