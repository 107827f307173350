// A host of the installed library: creates a class by name and calls it by name.
#include <filesystem>
#include <iostream>
#include <memory>

#include "library/Library.h"
#include "platform/hosted/HostedPlatform.h"

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  std::filesystem::create_directories(std::filesystem::path(argv[1]) / "C");
  const auto component =
      norvo::OpenLibrary(std::make_shared<norvo::HostedPlatform>(std::filesystem::path(argv[1])));
  const norvo::ObjectRef helper = component->Create(u"helperMan");
  norvo::Variant name = norvo::String(u"Mix.m3u");
  const norvo::Variant answer = helper->Call(u"PlayListToIni", norvo::Arguments(&name, 1));
  const bool right = std::get<norvo::String>(answer) == u"Mix.ini";
  std::cout << (right ? "found and used\n" : "wrong answer\n");
  return right ? 0 : 1;
}
