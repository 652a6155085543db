#pragma once

#include <Vexel/Vexel.h>

// What all axes of the following figures share.

inline vexel::XAxisArguments horizontal(const std::string& title, double lower, double upper) {
  return {.title = title,
          .titleOffset = 22.0f,
          .xRange = std::vector{lower, upper},
          .axisConstraints = vexel::CPTConstraints::constraintWithLowerOffset(0),
          .gridLines = true,
          .noLabels = false,
          .tickMarks = true,
          .timeAxis = false,
          .upperAxis = false,
          .onNewPlotSpace = false,
          .separateLayers = false};
}

inline vexel::YAxisArguments<double> vertical(const std::string& title, double lower,
                                              double upper) {
  return {.title = title,
          .titleOffset = 46.0f,
          .axisConstraints = vexel::CPTConstraints::constraintWithLowerOffset(0),
          .yRange = std::vector{lower, upper},
          .yScale = 1.0,
          .gridLines = true,
          .minorGridLines = false,
          .noLabels = false,
          .tickMarks = true,
          .rightAxis = false};
}
