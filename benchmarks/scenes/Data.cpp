#include "Data.h"

#include <algorithm>
#include <cmath>

namespace scenes {

std::uint64_t Random::bits() {
  state_ += 0x9e3779b97f4a7c15u;
  std::uint64_t mixed = state_;
  mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9u;
  mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111ebu;
  return mixed ^ (mixed >> 31);
}

double Random::fraction() {
  return std::ldexp(static_cast<double>(bits() >> 11), -53);
}

Points randomLine(std::size_t count) {
  Points points;
  points.x.reserve(count);
  points.y.reserve(count);
  Random random(1);
  const double n = static_cast<double>(count);
  const double widestStep = 2 * std::sqrt(3.0) / std::sqrt(n);
  double walk = 0;
  for (std::size_t i = 0; i < count; ++i) {
    walk += (random.fraction() - 0.5) * widestStep;
    const double three = random.fraction() + random.fraction() + random.fraction();
    const double noise = (three - 1.5) * 0.08;
    const bool isSpike = random.bits() % 20011 == 0;
    const double spike = isSpike ? random.fraction() - 0.5 : 0;
    points.x.push_back((static_cast<double>(i) + 0.5 * random.fraction()) * (1000 / n));
    points.y.push_back(walk + noise + spike);
  }
  return points;
}

ColoredPoints randomScatter(std::size_t count) {
  ColoredPoints points;
  Random random(2);
  const auto place = [&random](double center) {
    double sum = -2;
    for (int i = 0; i < 4; ++i) sum += random.fraction();
    return std::clamp(center + 0.12 * sum, 0.0, 1.0);
  };
  for (std::size_t i = 0; i < count; ++i) {
    if (random.bits() & 1) {
      points.x.push_back(random.fraction());
      points.y.push_back(random.fraction());
    } else {
      const auto cloud = static_cast<int>(random.bits() % 5);
      points.x.push_back(place(0.15 + 0.175 * cloud));
      points.y.push_back(place(0.2 + 0.15 * (cloud * 3 % 5)));
    }
    points.color.push_back(static_cast<std::uint32_t>(random.bits() & 255));
  }
  return points;
}

Panel panel(int index) {
  Panel panel;
  Random random(100 + static_cast<std::uint64_t>(index));
  for (int i = 0; i < 1000; ++i) {
    const double x = i * 0.1;
    panel.line.x.push_back(x);
    panel.line.y.push_back(2 * std::sin(0.15 * x + index) + 0.3 * (random.fraction() - 0.5));
  }
  for (int i = 0; i < 500; ++i) {
    panel.symbols.x.push_back(100 * random.fraction());
    panel.symbols.y.push_back(6 * (random.fraction() - 0.5));
  }
  for (int i = 0; i < 20; ++i) {
    panel.bars.x.push_back(2.5 + 5 * i);
    panel.bars.y.push_back(0.5 + 2 * random.fraction());
  }
  return panel;
}

}  // namespace scenes
