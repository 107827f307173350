#include "com/EventSource.h"

#include <olectl.h>

#include "com/Enumerator.h"

namespace norvo::com {
namespace {

struct KeptConnection {
  DWORD ticket;
  ComPointer<IDispatch> sink;

  CONNECTDATA Copy() const { return {ComPointer<IDispatch>(sink).Detach(), ticket}; }
};

struct KeptPoint {
  ComPointer<IConnectionPoint> point;

  IConnectionPoint* Copy() const { return ComPointer<IConnectionPoint>(point).Detach(); }
};

void Raise(IDispatch& sink, DISPID member) {
  DISPPARAMS none{};
  // What a listener makes of it is not the raiser's business.
  sink.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr,
              nullptr);
}

}  // namespace

EventSource::~EventSource() {
  for (const auto& [ticket, sink] : sinks_) event_.Unsubscribe(ticket);
}

STDMETHODIMP EventSource::QueryInterface(REFIID identifier, void** found) {
  if (found == nullptr) return E_POINTER;
  *found = nullptr;
  if (identifier != IID_IUnknown && identifier != IID_IConnectionPoint) return E_NOINTERFACE;
  *found = static_cast<IConnectionPoint*>(this);
  AddRef();
  return S_OK;
}

STDMETHODIMP EventSource::GetConnectionInterface(IID* events) {
  if (events == nullptr) return E_POINTER;
  *events = events_;
  return S_OK;
}

STDMETHODIMP EventSource::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (container == nullptr) return E_POINTER;
  *container = &container_;
  container_.AddRef();
  return S_OK;
}

STDMETHODIMP EventSource::Advise(IUnknown* sink, DWORD* ticket) {
  if (sink == nullptr || ticket == nullptr) return E_POINTER;
  *ticket = 0;
  ComPointer<IDispatch> listener = ComPointer<IUnknown>(sink).As<IDispatch>(events_);
  if (!listener) listener = ComPointer<IUnknown>(sink).As<IDispatch>();
  if (!listener) return CONNECT_E_CANNOTCONNECT;
  *ticket = event_.Subscribe([listener, this] { Raise(*listener.Get(), member_); });
  sinks_.emplace(*ticket, std::move(listener));
  return S_OK;
}

STDMETHODIMP EventSource::Unadvise(DWORD ticket) {
  if (sinks_.erase(ticket) == 0) return CONNECT_E_NOCONNECTION;
  event_.Unsubscribe(ticket);
  return S_OK;
}

STDMETHODIMP EventSource::EnumConnections(IEnumConnections** connections) {
  if (connections == nullptr) return E_POINTER;
  std::vector<KeptConnection> kept;
  for (const auto& [ticket, sink] : sinks_) kept.push_back({ticket, sink});
  *connections = new Enumerator<IEnumConnections, CONNECTDATA, KeptConnection>(std::move(kept));
  (*connections)->AddRef();
  return S_OK;
}

HRESULT ListConnectionPoints(IConnectionPoint& point, IEnumConnectionPoints** points) {
  if (points == nullptr) return E_POINTER;
  std::vector<KeptPoint> kept{{ComPointer<IConnectionPoint>(&point)}};
  *points = new Enumerator<IEnumConnectionPoints, IConnectionPoint*, KeptPoint>(std::move(kept));
  (*points)->AddRef();
  return S_OK;
}

}  // namespace norvo::com
