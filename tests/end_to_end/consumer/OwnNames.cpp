// A program with a text/Text.h and a services/Platform.h of its own, which come first.
#include <norvo/library/Library.h>
#include <norvo/move/MovePlaylists.h>

#include <iostream>

#include "services/Platform.h"
#include "text/Text.h"

int main() {
  const own::Platform platform{own::Text("own")};
  std::cout << platform.name << ' ' << norvo::EqualsIgnoreCase(u"Norvo", u"NORVO") << ' '
            << norvo::MoveResult().IsWhole() << '\n';
}
