#include "com/ClassFactory.h"

#include "com/ComTest.h"
#include "com/Faces.h"
#include "com/NorvoPlayList.h"

namespace norvo::com {
namespace {

class ClassFactoryTest : public ComTest {
 protected:
  ~ClassFactoryTest() override { Apartment::ReleaseAll(); }

  static ComPointer<IClassFactory> FactoryOf(const CLSID& identifier) {
    void* found = nullptr;
    EXPECT_EQ(GetClassFactory(identifier, IID_IClassFactory, &found), S_OK);
    ComPointer<IClassFactory> factory;
    *factory.Receive() = static_cast<IClassFactory*>(found);
    return factory;
  }
};

TEST_F(ClassFactoryTest, EveryPublicClassIsMade) {
  for (const PublicClass& each : PublicClasses()) {
    ComPointer<IDispatch> made;
    ASSERT_EQ(
        FactoryOf(each.identifier)
            ->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(made.Receive())),
        S_OK);
    EXPECT_TEXT(apartment->ObjectOf(made.Get())->ClassName(), each.name);
  }
}

TEST_F(ClassFactoryTest, AFactoryCountsAsAnObject) {
  ComPointer<IClassFactory> factory = FactoryOf(__uuidof(::Entry));
  EXPECT_EQ(CountLiveObjects(), 1);
  factory = {};
  EXPECT_EQ(CountLiveObjects(), 0);
}

TEST_F(ClassFactoryTest, OtherClassesAreNotAvailable) {
  void* found = this;
  EXPECT_EQ(GetClassFactory(__uuidof(_Entry), IID_IClassFactory, &found),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(found, nullptr);
  found = this;
  EXPECT_EQ(GetClassFactory(__uuidof(::Entry), IID_IDispatch, &found), E_NOINTERFACE);
  EXPECT_EQ(found, nullptr);
  EXPECT_EQ(GetClassFactory(__uuidof(::Entry), IID_IClassFactory, nullptr), E_POINTER);
}

TEST_F(ClassFactoryTest, AnObjectIsMadeWithTheInterfaceThatIsAskedFor) {
  const ComPointer<IClassFactory> factory = FactoryOf(__uuidof(::AsxEntry));
  void* made = this;
  EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(_PlayList), &made), E_NOINTERFACE);
  EXPECT_EQ(made, nullptr);
  EXPECT_EQ(CountLiveObjects(), 1) << "the factory alone";
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(ClassFactoryTest, NoObjectIsMadePartOfAnother) {
  const ComPointer<IClassFactory> factory = FactoryOf(__uuidof(::Entry));
  void* made = this;
  EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, &made), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(made, nullptr);
}

TEST_F(ClassFactoryTest, AHostCanLockTheModule) {
  FactoryOf(__uuidof(::Entry))->LockServer(TRUE);
  EXPECT_FALSE(IsModuleIdle());
  FactoryOf(__uuidof(::Entry))->LockServer(FALSE);
  EXPECT_TRUE(IsModuleIdle());
}

}  // namespace
}  // namespace norvo::com
