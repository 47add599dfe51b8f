#include "pipeline/session/IngestDialogData.h"

namespace IGD {

const Fnd::InterfaceID& IIngestDialogData::GetInterfaceID() {
    static const Fnd::InterfaceID id = Fnd::MakeInterfaceID("{38645337-A23D-4652-9C78-542163697F95}");
    return id;
}

void IngestDialogData::AddRef() {
    refCount_.fetch_add(1, std::memory_order_relaxed);
}

void IngestDialogData::Release() {
    if (refCount_.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete this;
}

Fnd::QueryResult IngestDialogData::QueryInterface(const Fnd::InterfaceID& id, void** out) {
    if (out == nullptr)
        return Fnd::kQueryNoInterface;
    if (id == IIngestDialogData::GetInterfaceID()) {
        *out = static_cast<IIngestDialogData*>(this);
    } else if (id == Fnd::FndUnknown::GetInterfaceID()) {
        *out = static_cast<Fnd::FndUnknown*>(this);
    } else {
        *out = nullptr;
        return Fnd::kQueryNoInterface;
    }
    AddRef();
    return Fnd::kQueryOK;
}

void IngestDialogData::Reset() {
    importOnly_ = true;
    selectedItems_.clear();
    destinations_.clear();
}

Fnd::InterfaceRef<Fnd::FndUnknown> IngestDialogData::GetUnknownRef() {
    return Fnd::InterfaceRef<Fnd::FndUnknown>(GetRawObject());
}

Fnd::InterfaceRef<Fnd::FndUnknown> CreateIngestDialogData() {
    return Fnd::InterfaceRef<Fnd::FndUnknown>(new IngestDialogData());
}

} // namespace IGD
