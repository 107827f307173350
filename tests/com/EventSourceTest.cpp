#include "com/EventSource.h"

#include <olectl.h>

#include <algorithm>

#include "com/ComTest.h"
#include "com/HostObject.h"
#include "com/NorvoPlayList.h"
#include "model/Entry.h"

namespace norvo::com {
namespace {

class EventSourceTest : public ComTest {
 protected:
  static HRESULT Accept(const HostObject::Asked& asked) {
    EXPECT_EQ(asked.member, 1);
    EXPECT_EQ(asked.parameters.cArgs, 0U);
    return S_OK;
  }

  EventSourceTest() {
    EXPECT_EQ(container_->FindConnectionPoint(__uuidof(__Entry), point.Receive()), S_OK);
  }
  /// A listener that lives longer than the entry.
  HostObject& Sink(HostObject::Answer answer = Accept) {
    return *sinks_.emplace_back(std::make_unique<HostObject>(std::move(answer)));
  }
  DWORD Advise(HostObject& sink) {
    DWORD ticket = 0;
    EXPECT_EQ(point->Advise(&sink, &ticket), S_OK);
    return ticket;
  }
  void Raise() { dynamic_cast<norvo::Entry&>(*object_).OutOfMemory().Raise(); }
  ULONG References() {
    container_->AddRef();
    return container_->Release();
  }

 private:
  std::vector<std::unique_ptr<HostObject>> sinks_;
  ObjectRef object_ = apartment->Create(u"Entry");

 protected:
  ComPointer<IConnectionPointContainer> container_ =
      apartment->FaceOf(object_).As<IConnectionPointContainer>();
  ComPointer<IConnectionPoint> point;
};

TEST_F(EventSourceTest, EverySinkHearsTheEvent) {
  HostObject& first = Sink();
  HostObject& second = Sink();
  const DWORD ticket = Advise(first);
  EXPECT_NE(Advise(second), ticket);
  Raise();
  Raise();
  EXPECT_EQ(first.Kinds(), (std::vector<WORD>{DISPATCH_METHOD, DISPATCH_METHOD}));
  EXPECT_EQ(second.Kinds().size(), 2U);
}

TEST_F(EventSourceTest, ASinkThatHasLeftHearsNothing) {
  HostObject& first = Sink();
  HostObject& second = Sink();
  const DWORD ticket = Advise(first);
  Advise(second);
  EXPECT_EQ(point->Unadvise(ticket), S_OK);
  EXPECT_EQ(first.References(), 0U);
  Raise();
  EXPECT_TRUE(first.Kinds().empty());
  EXPECT_EQ(second.Kinds().size(), 1U);
  EXPECT_EQ(point->Unadvise(ticket), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(point->Unadvise(0), CONNECT_E_NOCONNECTION);
}

TEST_F(EventSourceTest, ASinkMayLeaveWhileItIsCalled) {
  DWORD ticket = 0;
  HostObject& sink = Sink([&](const HostObject::Asked&) { return point->Unadvise(ticket); });
  ticket = Advise(sink);
  Raise();
  Raise();
  EXPECT_EQ(sink.Kinds().size(), 1U);
  EXPECT_EQ(sink.References(), 0U);
}

TEST_F(EventSourceTest, WhatASinkMakesOfItConcernsNobody) {
  HostObject& failing = Sink([](const HostObject::Asked&) { return E_FAIL; });
  HostObject& second = Sink();
  Advise(failing);
  Advise(second);
  Raise();
  EXPECT_EQ(second.Kinds().size(), 1U);
}

TEST_F(EventSourceTest, SinksAreLetGoOfWithTheEntry) {
  HostObject& sink = Sink();
  Advise(sink);
  EXPECT_EQ(sink.References(), 2U) << "the list's own, and the listener's";
  point = {};
  container_ = {};
  EXPECT_EQ(sink.References(), 0U);
  Raise();
  EXPECT_TRUE(sink.Kinds().empty());
}

TEST_F(EventSourceTest, OnlyAnObjectWithLateBoundCallsCanListen) {
  ComPointer<ICreateErrorInfo> plain;
  ASSERT_EQ(::CreateErrorInfo(plain.Receive()), S_OK);
  DWORD ticket = 7;
  EXPECT_EQ(point->Advise(plain.Get(), &ticket), CONNECT_E_CANNOTCONNECT);
  EXPECT_EQ(ticket, 0U);
  EXPECT_EQ(point->Advise(nullptr, &ticket), E_POINTER);
  EXPECT_EQ(point->Advise(plain.Get(), nullptr), E_POINTER);
}

TEST_F(EventSourceTest, ThePointKnowsWhereItBelongs) {
  IID events{};
  EXPECT_EQ(point->GetConnectionInterface(&events), S_OK);
  EXPECT_EQ(events, __uuidof(__Entry));
  ComPointer<IConnectionPointContainer> container;
  EXPECT_EQ(point->GetConnectionPointContainer(container.Receive()), S_OK);
  EXPECT_EQ(container.Get(), container_.Get());
  EXPECT_EQ(point.As<IConnectionPoint>().Get(), point.Get());
  EXPECT_FALSE(point.As<IDispatch>()) << "an object of its own";
}

TEST_F(EventSourceTest, ThePointKeepsItsEntry) {
  EXPECT_EQ(References(), 2U);
  container_ = {};
  EXPECT_EQ(CountLiveObjects(), 1);
}

TEST_F(EventSourceTest, OtherEventsHaveNoPoint) {
  ComPointer<IConnectionPoint> none;
  EXPECT_EQ(container_->FindConnectionPoint(IID_IDispatch, none.Receive()), CONNECT_E_NOCONNECTION);
  EXPECT_FALSE(none);
  EXPECT_EQ(container_->FindConnectionPoint(__uuidof(__Entry), nullptr), E_POINTER);
}

TEST_F(EventSourceTest, ThePointsAreListed) {
  ComPointer<IEnumConnectionPoints> points;
  ASSERT_EQ(container_->EnumConnectionPoints(points.Receive()), S_OK);
  EXPECT_EQ(container_->EnumConnectionPoints(nullptr), E_POINTER);
  IConnectionPoint* found[2] = {};
  ULONG fetched = 7;
  EXPECT_EQ(points->Next(2, found, &fetched), S_FALSE);
  ASSERT_EQ(fetched, 1U);
  EXPECT_EQ(found[0], point.Get());
  found[0]->Release();
  EXPECT_EQ(points->Next(1, found, &fetched), S_FALSE);
  EXPECT_EQ(fetched, 0U);
}

TEST_F(EventSourceTest, TheSinksAreListed) {
  HostObject& first = Sink();
  std::vector<DWORD> tickets{Advise(first), Advise(Sink()), Advise(Sink())};
  ComPointer<IEnumConnections> connections, copy;
  ASSERT_EQ(point->EnumConnections(connections.Receive()), S_OK);
  EXPECT_EQ(point->EnumConnections(nullptr), E_POINTER);
  CONNECTDATA found[3] = {};
  ASSERT_EQ(connections->Next(1, found, nullptr), S_OK);
  EXPECT_EQ(connections->Next(2, found, nullptr), E_POINTER) << "the number must be told";
  ASSERT_EQ(connections->Clone(copy.Receive()), S_OK);
  EXPECT_EQ(copy->Skip(1), S_OK);
  ULONG fetched = 0;
  EXPECT_EQ(copy->Next(3, found + 1, &fetched), S_FALSE);
  ASSERT_EQ(fetched, 1U);
  EXPECT_EQ(found[0].dwCookie, tickets[0]);
  EXPECT_EQ(found[0].pUnk, ComPointer<IUnknown>(&first).Get());
  EXPECT_EQ(found[1].dwCookie, tickets[2]);
  EXPECT_EQ(copy->Skip(1), S_FALSE);
  EXPECT_EQ(copy->Reset(), S_OK);
  EXPECT_EQ(copy->Skip(3), S_OK);
  EXPECT_EQ(connections->Skip(9), S_FALSE);
  for (const CONNECTDATA& each : {found[0], found[1]}) each.pUnk->Release();
}

TEST_F(EventSourceTest, AListOfSinksKeepsThem) {
  HostObject& sink = Sink();
  const DWORD ticket = Advise(sink);
  ComPointer<IEnumConnections> connections;
  ASSERT_EQ(point->EnumConnections(connections.Receive()), S_OK);
  EXPECT_EQ(point->Unadvise(ticket), S_OK);
  EXPECT_EQ(sink.References(), 1U);
  connections = {};
  EXPECT_EQ(sink.References(), 0U);
}

}  // namespace
}  // namespace norvo::com
