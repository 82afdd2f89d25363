#include "overlay/vx_t_ds_object.h"

#include "overlay/vx_t_interact.h"

namespace ruvex {

VxTDsObject::~VxTDsObject() {
    if (tool) tool->RemoveDsObject(this);
    for (auto* node = dependents.head; node; node = node->next) {
        node->item->dependsOn_.removeAll(this);
    }
    for (auto* node = dependsOn_.head; node; node = node->next) {
        node->item->dependents.removeAll(this);
    }
}

void VxTDsObject::addDependent(VxTDsObject& object) {
    object.dependsOn_.append(this);
    dependents.append(&object);
}

void VxTDsObject::handleMessage(VxMessage* message, VxMessageSender* sender) {
    if (!watched || sender != watched) return;
    if (message->id != VxMessageId::DragEnded && message->id != VxMessageId::DragCancelled) return;
    writeProperties();
    dependents.walk([](VxTDsObject* object) {
        object->readProperties();
        return true;
    });
}

}  // namespace ruvex
