#include "overlay/vx_message.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "tests/support/watched_new.h"

namespace ruvex {
namespace {

class Listener final : public VxMessageHandler {
public:
    void handleMessage(VxMessage* message, VxMessageSender* sender) override {
        ++received;
        lastSender = sender;
        lastId = message->id;
        if (reaction) reaction(*message);
    }

    int received = 0;
    VxMessageSender* lastSender = nullptr;
    VxMessageId lastId{};
    std::function<void(VxMessage&)> reaction;
};

template <class T>
std::size_t lengthOf(const VxList<T>& list) {
    std::size_t length = 0;
    for (auto* node = list.head; node; node = node->next) ++length;
    return length;
}

TEST(Message, CutsItsNameTo15Characters) {
    EXPECT_STREQ(VxMessage(VxMessageId::PenMoved).name, "");
    EXPECT_STREQ(VxMessage(VxMessageId::PenMoved, "").name, "");
    for (const int length : {1, 14, 15, 16, 40}) {
        const std::string text = std::string("abcdefghijklmnopqrstuvwxyz0123456789ABCDEFG");
        const std::string name = text.substr(0, static_cast<std::size_t>(length));
        EXPECT_EQ(VxMessage(VxMessageId::PenMoved, name.c_str()).name, name.substr(0, 15));
    }
}

TEST(Message, HoldsNothingANumberOrAPosition) {
    VxMessage message(VxMessageId::DragBegins);
    EXPECT_EQ(message.dataType, VxDataType::None);
    EXPECT_EQ(message.number(), 0);
    EXPECT_EQ(message.position(), VxPosition{});
    EXPECT_FALSE(message.hasPosition());
    message.setNumber(-7);
    EXPECT_EQ(static_cast<int>(message.dataType), 1);
    EXPECT_EQ(message.number(), -7);
    message.setPosition({1.5f, -2.0f});
    EXPECT_EQ(static_cast<int>(message.dataType), 6);
    EXPECT_EQ(message.position(), (VxPosition{1.5f, -2.0f}));
    EXPECT_TRUE(message.hasPosition());
    message.dataType = VxDataType::PositionType7;
    EXPECT_TRUE(message.hasPosition());
}

TEST(MessageDeathTest, EndsTheProcessForDataThatItWouldOwn) {
    const auto destroy = [](VxDataType type) {
        VxMessage message(VxMessageId::DragEnded);
        message.dataType = type;
    };
    EXPECT_DEATH(destroy(VxDataType::OwnedType5), "");
    EXPECT_DEATH(destroy(VxDataType::OwnedType26), "");
    for (const int type : {0, 1, 2, 4, 6, 7, 25, 27}) destroy(static_cast<VxDataType>(type));
}

TEST(MessageSender, ReachesItsHandlersInTheirOrder) {
    VxMessageSender sender;
    Listener listeners[3];
    std::vector<int> order;
    for (int i = 0; i < 3; ++i) {
        connect(&listeners[i], &sender);
        listeners[i].reaction = [&order, i](VxMessage&) { order.push_back(i); };
    }
    VxMessage message(VxMessageId::ValueChanged);
    sender.send(message);
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(listeners[2].lastSender, &sender);
    EXPECT_EQ(listeners[2].lastId, VxMessageId::ValueChanged);
}

TEST(MessageSender, ConnectsAPairOnce) {
    VxMessageSender sender;
    Listener listener;
    connect(&listener, &sender);
    connect(&listener, &sender);
    EXPECT_EQ(lengthOf(sender.handlers), 1u);
    EXPECT_EQ(lengthOf(listener.senders), 1u);
    connect(&listener, nullptr);
    connect(nullptr, &sender);
    connect(nullptr, nullptr);
    EXPECT_EQ(lengthOf(sender.handlers), 1u);
    EXPECT_EQ(lengthOf(listener.senders), 1u);
}

TEST(MessageSender, AConnectionThatFindsNoMemoryChangesNothing) {
    for (const std::size_t failing : {1u, 2u}) {
        VxMessageSender sender;
        Listener listener;
        {
            const test::FailingNew memory(failing);
            EXPECT_THROW(connect(&listener, &sender), std::bad_alloc);
        }
        EXPECT_TRUE(sender.handlers.empty()) << failing;
        EXPECT_TRUE(listener.senders.empty()) << failing;
        connect(&listener, &sender);
        EXPECT_EQ(lengthOf(sender.handlers), 1u);
        EXPECT_EQ(lengthOf(listener.senders), 1u);
    }
}

TEST(MessageSender, AFailedConnectionKeepsALinkThatWasThereBefore) {
    VxMessageSender sender;
    Listener listener;
    sender.handlers.append(&listener);
    {
        const test::FailingNew memory(1);
        EXPECT_THROW(connect(&listener, &sender), std::bad_alloc);
    }
    EXPECT_EQ(lengthOf(sender.handlers), 1u);
    EXPECT_TRUE(listener.senders.empty());
    sender.handlers.removeAll(&listener);
}

TEST(MessageSender, BothSidesMayDieWithANullInTheirLists) {
    Listener listener;
    {
        VxMessageSender sender;
        sender.handlers.append(nullptr);
        connect(&listener, &sender);
        sender.handlers.append(nullptr);
    }
    EXPECT_TRUE(listener.senders.empty());
    VxMessageSender sender;
    {
        Listener dying;
        dying.senders.append(nullptr);
        connect(&dying, &sender);
    }
    EXPECT_TRUE(sender.handlers.empty());
}

TEST(MessageSender, MayDieBeforeItsHandlers) {
    Listener listener;
    {
        VxMessageSender sender;
        connect(&listener, &sender);
    }
    EXPECT_TRUE(listener.senders.empty());
}

TEST(MessageSender, ReachesNoHandlerThatHasDied) {
    VxMessageSender sender;
    Listener staying;
    {
        Listener gone;
        connect(&gone, &sender);
        connect(&staying, &sender);
    }
    EXPECT_EQ(lengthOf(sender.handlers), 1u);
    VxMessage message(VxMessageId::DragEnded);
    sender.send(message);
    EXPECT_EQ(staying.received, 1);
}

TEST(MessageSender, AHandlerMayDieByTheMessage) {
    VxMessageSender sender;
    auto first = std::make_unique<Listener>();
    Listener second;
    connect(first.get(), &sender);
    connect(&second, &sender);
    first->reaction = [&](VxMessage&) {
        auto reaction = std::move(first->reaction);
        first.reset();
    };
    VxMessage message(VxMessageId::DragEnded);
    sender.send(message);
    EXPECT_EQ(second.received, 1);
    EXPECT_EQ(lengthOf(sender.handlers), 1u);
}

TEST(MessageSender, AHandlerThatDestroysTheNextOneGetsTheMessageAgain) {
    VxMessageSender sender;
    Listener first, last;
    auto second = std::make_unique<Listener>();
    for (Listener* listener : {&first, second.get(), &last}) connect(listener, &sender);
    first.reaction = [&](VxMessage&) { second.reset(); };
    VxMessage message(VxMessageId::DragEnded);
    sender.send(message);
    EXPECT_EQ(first.received, 2);
    EXPECT_EQ(last.received, 1);
}

TEST(MessageSender, AMessageInsideAMessageEndsTheOuterOne) {
    VxMessageSender sender;
    Listener first, second;
    connect(&first, &sender);
    connect(&second, &sender);
    bool nested = false;
    first.reaction = [&](VxMessage&) {
        if (std::exchange(nested, true)) return;
        VxMessage inner(VxMessageId::DragEnded);
        sender.send(inner);
    };
    VxMessage outer(VxMessageId::DragBegins);
    sender.send(outer);
    EXPECT_EQ(second.received, 1);
    EXPECT_EQ(second.lastId, VxMessageId::DragEnded) << "the outer one does not reach it";
}

TEST(MessageSender, StopsAtANullHandler) {
    VxMessageSender sender;
    Listener before, behind;
    connect(&before, &sender);
    sender.handlers.append(nullptr);
    sender.handlers.append(&behind);
    VxMessage message(VxMessageId::DragEnded);
    sender.send(message);
    EXPECT_EQ(before.received, 1);
    EXPECT_EQ(behind.received, 0);
    sender.handlers.removeAll(nullptr);
    sender.handlers.removeAll(&behind);
}

TEST(MessageSender, SendingAndDisconnectingNeedNoMemory) {
    VxMessageSender sender;
    Listener listener;
    connect(&listener, &sender);
    const test::FailingNew memory(1);
    VxMessage message(VxMessageId::DragEnded, "without memory");
    sender.send(message);
    sender.handlers.removeAll(&listener);
    listener.senders.removeAll(&sender);
    EXPECT_FALSE(memory.failed());
    EXPECT_EQ(listener.received, 1);
}

// Random connections, messages and deaths, against lists of pairs.

class RandomLinks {
public:
    void run(int steps) {
        for (int step = 0; step < steps; ++step) {
            if (step % 100 == 0) expectSameLinks();
            switch (random_() % 8) {
                case 0:
                    addSender();
                    break;
                case 1:
                    addListener();
                    break;
                case 2:
                    removeSender();
                    break;
                case 3:
                    removeListener();
                    break;
                case 4:
                    sendOne();
                    break;
                default:
                    connectTwo();
            }
        }
        expectSameLinks();
    }

    /// The links of all comparisons together.
    std::size_t comparedLinks() const { return comparedLinks_; }

private:
    using Sender = std::unique_ptr<VxMessageSender>;
    using Handler = std::unique_ptr<Listener>;

    template <class T>
    T* any(const std::vector<std::unique_ptr<T>>& all) {
        return all.empty() ? nullptr : all[random_() % all.size()].get();
    }
    /// Any one, if there are more than a few.
    template <class T>
    T* anyToRemove(const std::vector<std::unique_ptr<T>>& all) {
        return all.size() > kFewest ? any(all) : nullptr;
    }
    template <class T>
    void erase(std::vector<std::unique_ptr<T>>& all, const T* one) {
        std::erase_if(all, [one](const auto& each) { return each.get() == one; });
    }

    void addSender() { senders_.push_back(std::make_unique<VxMessageSender>()); }
    void addListener() { listeners_.push_back(std::make_unique<Listener>()); }
    void removeSender() {
        const VxMessageSender* const sender = anyToRemove(senders_);
        handlersOf_.erase(sender);
        for (auto& [listener, linked] : sendersOf_) std::erase(linked, sender);
        erase(senders_, sender);
    }
    void removeListener() {
        const Listener* const listener = anyToRemove(listeners_);
        sendersOf_.erase(listener);
        for (auto& [sender, linked] : handlersOf_) std::erase(linked, listener);
        erase(listeners_, listener);
    }
    void connectTwo() {
        VxMessageSender* const sender = any(senders_);
        Listener* const listener = any(listeners_);
        connect(listener, sender);
        if (!sender || !listener) return;
        auto& linked = handlersOf_[sender];
        if (std::ranges::find(linked, listener) != linked.end()) return;
        linked.push_back(listener);
        sendersOf_[listener].push_back(sender);
    }
    void sendOne() {
        VxMessageSender* const sender = any(senders_);
        if (!sender) return;
        std::map<const Listener*, int> before;
        for (const Handler& listener : listeners_) before[listener.get()] = listener->received;
        VxMessage message(VxMessageId::ValueChanged);
        sender->send(message);
        for (const Handler& listener : listeners_) {
            const bool linked = std::ranges::count(handlersOf_[sender], listener.get()) > 0;
            EXPECT_EQ(listener->received, before[listener.get()] + linked);
        }
    }
    template <class Item, class T>
    static std::vector<const Item*> itemsOf(const VxList<T>& list) {
        std::vector<const Item*> items;
        for (auto* node = list.head; node; node = node->next) {
            items.push_back(static_cast<const Item*>(node->item));
        }
        return items;
    }
    /// Compares both sides of all links.
    void expectSameLinks() {
        for (const Sender& sender : senders_) {
            const auto handlers = itemsOf<Listener>(sender->handlers);
            EXPECT_EQ(handlers, handlersOf_[sender.get()]);
            comparedLinks_ += handlers.size();
        }
        for (const Handler& listener : listeners_) {
            EXPECT_EQ(itemsOf<VxMessageSender>(listener->senders), sendersOf_[listener.get()]);
        }
    }

    static constexpr std::size_t kFewest = 5;

    std::mt19937 random_{5};
    std::vector<Sender> senders_;
    std::vector<Handler> listeners_;
    /// Both sides of the links, in the order of their connection.
    std::map<const VxMessageSender*, std::vector<const Listener*>> handlersOf_;
    std::map<const Listener*, std::vector<const VxMessageSender*>> sendersOf_;
    std::size_t comparedLinks_ = 0;
};

TEST(MessageSender, KeepsItsLinksThroughRandomConnectionsAndDeaths) {
    RandomLinks links;
    links.run(10000);
    EXPECT_GT(links.comparedLinks(), 1000u);
}

}  // namespace
}  // namespace ruvex
