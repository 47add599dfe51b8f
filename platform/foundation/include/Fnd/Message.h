#pragma once
#include <cstdint>
#include <memory>
#include <string_view>

namespace Fnd {

using MessageID = std::uint32_t;

// Stable 32-bit id of a message type name (FNV-1a), so that ids agree between processes.
MessageID HashMessageTypeNameToMessageID(std::string_view typeName);

class Message {
public:
    virtual ~Message() = default;
    virtual MessageID GetMessageID() const = 0;
    // Posting keeps a copy until the run loop delivers it.
    virtual std::unique_ptr<Message> Clone() const = 0;
};

// Base of concrete messages: Derived declares `static constexpr std::string_view kTypeName`.
// The id is computed once per type, on first use.
template <class Derived> class MessageT : public Message {
public:
    static MessageID ID() {
        static const MessageID id = HashMessageTypeNameToMessageID(Derived::kTypeName);
        return id;
    }
    MessageID GetMessageID() const override { return ID(); }
    std::unique_ptr<Message> Clone() const override {
        return std::make_unique<Derived>(static_cast<const Derived&>(*this));
    }
};

// The message as its concrete type, or null when it is another one.
template <class M> const M* MessageCast(const Message& message) {
    return message.GetMessageID() == M::ID() ? static_cast<const M*>(&message) : nullptr;
}

} // namespace Fnd
