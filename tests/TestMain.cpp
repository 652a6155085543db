#include <gmock/gmock.h>

#include <clocale>
#include <locale>

// Tests run in the user's locale, as desktop applications do. A locale that the system does not
// have leaves the plain one.
int main(int argc, char** argv) {
  if (std::setlocale(LC_ALL, "") != nullptr) std::locale::global(std::locale(""));
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
