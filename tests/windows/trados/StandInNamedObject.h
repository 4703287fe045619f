#pragma once

#include <windows.h>
// Behind it, since they do not stand alone.
#include <ocidl.h>
#include <oleauto.h>

/// An object whose members are found by name. It lives as long as the process.
class StandInNamedObject : public IDispatch {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** found) override {
    const bool known = wanted == IID_IUnknown || wanted == IID_IDispatch;
    *found = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* numbers) override {
    numbers[0] = DISPID_UNKNOWN;
    return NumberOf(names[0], numbers[0]);
  }
  virtual HRESULT NumberOf(const wchar_t* member, DISPID& number) = 0;
};
