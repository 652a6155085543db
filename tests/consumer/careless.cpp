// Code that our own rules would not let pass.
#include <Vexel/Vexel.h>

int careless(double value) {
  int unused = value;
  {
    float value = 1;
    return value;
  }
}
