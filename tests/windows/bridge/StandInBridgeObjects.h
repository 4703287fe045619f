#pragma once

#include "StandInBridge.h"
#include "windows/bridge/StandInFillers.h"
#include "windows/bridge/StandInObject.h"

namespace qb {

#define FILLER(position)                                  \
  HRESULT STDMETHODCALLTYPE Filler##position() override { \
    return Stray(position);                               \
  }

class StandInDocuments : public StandInObject<IStandInDocuments, IBridgeDocuments> {
 public:
  explicit StandInDocuments(const std::shared_ptr<IBridgeDocuments>& scripted)
      : StandInObject(__uuidof(IStandInDocuments), scripted) {}
  HRESULT STDMETHODCALLTYPE get_Size(long* size) override;
  HRESULT STDMETHODCALLTYPE Load(BSTR path, long mode, IDispatch** paper) override;
  FILLERS_0_TO_11 FILLERS_13_TO_18 FILLER(20)
};

class StandInGroup : public StandInObject<IStandInGroup, IBridgeGroup> {
 public:
  explicit StandInGroup(const std::shared_ptr<IBridgeGroup>& scripted)
      : StandInObject(__uuidof(IStandInGroup), scripted) {}
  HRESULT STDMETHODCALLTYPE get_Papers(IStandInDocuments** papers) override;
  HRESULT STDMETHODCALLTYPE Shut() override;
  HRESULT STDMETHODCALLTYPE Tile(long style) override;
  FILLERS_0_TO_11 FILLERS_13_TO_16 FILLER(19)
};

class StandInGroups : public StandInObject<IStandInGroups, IBridgeGroups> {
 public:
  explicit StandInGroups(const std::shared_ptr<IBridgeGroups>& scripted)
      : StandInObject(__uuidof(IStandInGroups), scripted) {}
  HRESULT STDMETHODCALLTYPE Find(VARIANT key, IStandInGroup** set) override;
  HRESULT STDMETHODCALLTYPE Make(BSTR path, IDispatch** set) override;
  FILLERS_0_TO_16 FILLER(19)
};

class StandInBridge : public StandInObject<IStandInBridge, IBridge> {
 public:
  explicit StandInBridge(const std::shared_ptr<IBridge>& scripted)
      : StandInObject(__uuidof(IStandInBridge), scripted) {}
  HRESULT STDMETHODCALLTYPE get_Sets(IStandInGroups** sets) override;
  HRESULT STDMETHODCALLTYPE CanDo(BSTR type, long ability, long* able) override;
  FILLERS_0_TO_15 FILLERS_17_TO_21 FILLER(23)
};

class StandInProperty : public StandInObject<IStandInProperty, IBridgeProperty> {
 public:
  StandInProperty(const std::shared_ptr<IBridgeProperty>& scripted, std::string name)
      : StandInObject(__uuidof(IStandInProperty), scripted), name_(std::move(name)) {}
  HRESULT STDMETHODCALLTYPE get_Content(VARIANT* content) override;
  HRESULT STDMETHODCALLTYPE put_Content(VARIANT content) override;
  FILLERS_0_TO_11 FILLER(14) private : std::string name_;
};

class StandInProperties : public StandInObject<IStandInProperties, IBridgeProperties> {
 public:
  explicit StandInProperties(const std::shared_ptr<IBridgeProperties>& scripted)
      : StandInObject(__uuidof(IStandInProperties), scripted) {}
  HRESULT STDMETHODCALLTYPE Find(VARIANT name, IStandInProperty** note) override;
  FILLERS_0_TO_16 FILLER(18)
};

#undef FILLER

}  // namespace qb
