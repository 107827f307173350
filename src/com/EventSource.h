#pragma once

#include <ocidl.h>

#include <map>

#include "automation/Event.h"
#include "com/ComPointer.h"

namespace norvo::com {

/// The connection point of one event without arguments: hands it on to everybody who has advised a
/// sink. It lives in its container, whose references it counts.
class EventSource final : public IConnectionPoint {
 public:
  /// `events` is the dispatch interface of the sinks, `member` the event's number in it. `event`
  /// and `container` must outlive this.
  EventSource(IConnectionPointContainer& container, const IID& events, DISPID member, Event& event)
      : container_(container), events_(events), member_(member), event_(event) {}
  ~EventSource();
  EventSource(const EventSource&) = delete;
  EventSource& operator=(const EventSource&) = delete;

  STDMETHODIMP QueryInterface(REFIID identifier, void** found) override;
  STDMETHODIMP_(ULONG) AddRef() override { return container_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return container_.Release(); }

  STDMETHODIMP GetConnectionInterface(IID* events) override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
  STDMETHODIMP Advise(IUnknown* sink, DWORD* ticket) override;
  STDMETHODIMP Unadvise(DWORD ticket) override;
  STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

 private:
  IConnectionPointContainer& container_;
  IID events_;
  DISPID member_;
  Event& event_;
  std::map<DWORD, ComPointer<IDispatch>> sinks_;  // by the event's ticket
};

/// The connection points of an object that has this one.
HRESULT ListConnectionPoints(IConnectionPoint& point, IEnumConnectionPoints** points);

}  // namespace norvo::com
