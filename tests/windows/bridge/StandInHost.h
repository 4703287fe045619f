#pragma once

#include <string>
#include <vector>

#include "platform/Applications.h"
#include "windows/bridge/StandInObject.h"

namespace qb {

/// An object of the office application itself, which is asked by name.
template <class Scripted>
class StandInNamed : public StandInObject<IDispatch, Scripted> {
 public:
  explicit StandInNamed(const std::shared_ptr<Scripted>& scripted)
      : StandInObject<IDispatch, Scripted>(IID_IDispatch, scripted) {}
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID unused, LPOLESTR* names, UINT count, LCID language,
                                          DISPID* members) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID unused, LCID language, WORD flags,
                                   DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* failure,
                                   UINT* argument) override;

 protected:
  /// What a member gives, by its name; "_NewEnum" is the enumerator.
  virtual void Read(const std::string& name, const DISPPARAMS& arguments, VARIANT& result) = 0;

 private:
  std::vector<std::string> known_;
};

class StandInHost : public StandInNamed<AutomationObject> {
 public:
  using StandInNamed::StandInNamed;

 private:
  void Read(const std::string& name, const DISPPARAMS& arguments, VARIANT& result) override;
};

/// A list of texts.
class StandInTexts : public StandInNamed<Collection<std::string>> {
 public:
  using StandInNamed::StandInNamed;

 private:
  void Read(const std::string& name, const DISPPARAMS& arguments, VARIANT& result) override;
};

}  // namespace qb
