// The life of the objects that clients hold of a window: made when they are asked for, one for each control.
#include "parts/access_link.h"
#include "parts/access_object.h"
#include "parts/access_system.h"

namespace galdren {

void Release_Object::operator()(Access_Object* object) const { object->Release(); }

void Access_Link::Cut() {
    served = nullptr;
    window = nullptr;
    // Without memory for the list, clients of other processes keep their objects, which answer with errors.
    Without_Exceptions([this] {
        for (const Object_Holder& object : Held_Objects())
            Disconnect_Clients(object.get());
        return S_OK;
    });
}

std::vector<Object_Holder> Access_Link::Held_Objects() {
    const Locked locked(lock);
    std::vector<Object_Holder> held;
    held.reserve(objects.size());
    for (const auto& [serial, object] : objects) {
        object->AddRef();
        held.emplace_back(object);
    }
    return held;
}

Object_Holder Access_Link::Object(unsigned serial) {
    const Locked locked(lock);
    const auto known = objects.find(serial);
    if (known != objects.end()) {
        known->second->AddRef();
        return Object_Holder(known->second);
    }
    auto object = std::make_unique<Access_Object>(shared_from_this(), serial);
    objects.emplace(serial, object.get());
    return Object_Holder(object.release());
}

ULONG Access_Link::Count_Down(Access_Object& object) {
    // Within the lock, so that nobody gets an object whose last use has just ended.
    const Locked locked(lock);
    const ULONG left = --object.uses;
    if (left == 0) objects.erase(object.serial);
    return left;
}

}  // namespace galdren
