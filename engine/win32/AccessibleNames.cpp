// The system keeps such names itself; our windows answer no questions for them.
#include "engine/win32/AccessibleNames.h"

#include <initguid.h>
#include <oleacc.h>

namespace plinth {

AccessibleNames::AccessibleNames() {
  void* service = nullptr;
  if (SUCCEEDED(::CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                                   &service)))
    service_ = static_cast<IAccPropServices*>(service);
}

AccessibleNames::~AccessibleNames() {
  if (service_) service_->Release();
}

void AccessibleNames::set(HWND window, const std::wstring& name) {
  if (service_ && window)
    service_->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_NAME,
                             name.c_str());
}

}  // namespace plinth
