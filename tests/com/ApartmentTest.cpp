#include "com/Apartment.h"

#include <thread>

#include "com/ComTest.h"

namespace norvo::com {
namespace {

class ApartmentTest : public ComTest {
 protected:
  ~ApartmentTest() override { Apartment::ReleaseAll(); }

  /// Runs to its end on a thread of its own.
  template <class Work>
  static void OnAnotherThread(Work&& work) {
    std::thread(std::forward<Work>(work)).join();
  }
};

TEST_F(ApartmentTest, AThreadHasOne) {
  EXPECT_EQ(Apartment::Current(), Apartment::Current());
}

TEST_F(ApartmentTest, EveryThreadHasItsOwn) {
  const std::shared_ptr<Apartment> own = Apartment::Current();
  std::shared_ptr<Apartment> other;
  OnAnotherThread([&] { other = Apartment::Current(); });
  EXPECT_NE(other, own);
  EXPECT_NE(&other->Library(), &own->Library());
}

TEST_F(ApartmentTest, ItGoesAfterTheEndOfItsThread) {
  std::weak_ptr<Apartment> watched;
  OnAnotherThread([&] {
    watched = Apartment::Current();
    Apartment::Retire();
  });
  EXPECT_FALSE(watched.expired()) << "not while the system ends the thread";
  Apartment::Current();
  EXPECT_TRUE(watched.expired());
}

TEST_F(ApartmentTest, AThreadWithoutOneMayEnd) {
  OnAnotherThread([] { Apartment::Retire(); });
  EXPECT_EQ(CountLiveObjects(), 0);
}

TEST_F(ApartmentTest, ItStaysWhileSomebodyHoldsAnObject) {
  std::weak_ptr<Apartment> watched;
  ComPointer<IDispatch> face;
  OnAnotherThread([&] {
    const std::shared_ptr<Apartment> own = Apartment::Current();
    watched = own;
    face = own->FaceOf(own->Create(u"Entry"));
    Apartment::Retire();
  });
  Apartment::Current();
  EXPECT_FALSE(watched.expired());
  face = {};
  EXPECT_TRUE(watched.expired());
}

TEST_F(ApartmentTest, AllGoTogether) {
  const std::weak_ptr<Apartment> own = Apartment::Current();
  std::weak_ptr<Apartment> other;
  OnAnotherThread([&] { other = Apartment::Current(); });
  EXPECT_FALSE(other.expired());
  Apartment::ReleaseAll();
  EXPECT_TRUE(own.expired());
  EXPECT_TRUE(other.expired());
}

TEST_F(ApartmentTest, AnObjectOfAnotherThreadIsTheLibrarysOwnAllTheSame) {
  const ComPointer<IDispatch> face = Create(u"Entry");
  EXPECT_EQ(Apartment::Current()->ObjectOf(face.Get()), apartment->ObjectOf(face.Get()));
}

TEST_F(ApartmentTest, UnknownClassesAndTypesAreRefused) {
  EXPECT_EQ(NumberRaisedBy([&] { return apartment->Create(u"Song"); }), error::kCannotCreateObject);
  EXPECT_NE(NumberRaisedBy([&] { return apartment->TypeOf(IID_IClassFactory).Get(); }), 0);
}

}  // namespace
}  // namespace norvo::com
