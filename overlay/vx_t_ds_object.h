// Binds an on-screen control to properties of the effect.

#pragma once

#include "overlay/vx_message.h"
#include "sdk/com/variant.h"

namespace ruvex {

class VxTInteract;

/// Binds a control to properties. They are written when a drag of the control ends, and read when
/// they or the time change.
class VxTDsObject : public VxMessageHandler {
public:
    /// Takes the object out of its tool and of the lists of dependents.
    ~VxTDsObject() override;
    /// At the end of a drag of `watched`, writes the properties and has the dependents read theirs.
    /// Messages of other senders, and other messages, are ignored.
    void handleMessage(VxMessage* message, VxMessageSender* sender) override;
    /// A property has changed, to `value` if that is not null; nonzero if something has moved.
    virtual std::int32_t propertyChanged(const GUID& id, const DSVARIANT* value) = 0;
    virtual void timeChanged(double seconds) = 0;
    virtual void writeProperties() = 0;
    virtual void readProperties() = 0;

    /// `object` reads its properties after this one has written.
    void addDependent(VxTDsObject& object);

    VxTInteract* tool = nullptr;         ///< Set by VxTInteract::AddDsObject.
    VxMessageSender* watched = nullptr;  ///< Whose messages count.
    VxList<VxTDsObject*> dependents;

private:
    VxList<VxTDsObject*> dependsOn_;
};

}  // namespace ruvex
