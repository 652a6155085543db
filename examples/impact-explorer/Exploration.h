#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "Band.h"
#include "ColorCoding.h"
#include "CsvReader.h"
#include "ImpactSample.h"
#include "ReadOut.h"
#include "Table.h"

namespace explorer {

/// What a figure shows of a table: one quantity over time, coloured by another, and the quantities
/// of the bands below it.
struct Choice {
  std::string value;
  std::string color;
  std::vector<std::string> bands;

  friend bool operator==(const Choice&, const Choice&) = default;
};

/// A table with times, of a file or the sample, and what can be shown of it. What takes long is
/// done on construction or once. Several threads may ask at once.
class Exploration {
 public:
  // What it has made refers to it.
  Exploration(const Exploration&) = delete;
  Exploration& operator=(const Exploration&) = delete;

  /// Absent file: the sample. Throws InputError when the file cannot be used, and ReadingEnded.
  Exploration(const std::optional<std::string>& file, const std::optional<std::string>& timeName,
              const ReadWatch& watch);

  /// The file, or "sample".
  const std::string& name() const { return name_; }
  /// What could not be read of the file, one line each.
  const std::vector<std::string>& warnings() const { return warnings_; }
  std::size_t rowCount() const { return rowTimes_.size(); }
  /// Around all times, as timeSpan() has it.
  const TimeSpan& span() const { return span_; }

  /// The columns but the time that hold a number, at least one.
  const std::vector<std::string>& quantities() const { return quantities_; }
  /// Those and, over a calendar, the number of rows per some days.
  std::vector<std::string> bandQuantities() const;

  /// The quantities named, as far as there are such, and the first others instead of those that
  /// are missing.
  Choice choice(const std::optional<std::string>& value, const std::optional<std::string>& color,
                const std::vector<std::string>& bands) const;

  // Of quantities that there are

  /// As symbols.
  const Band& valueBand(const std::string& quantity) const;
  /// In the style that suits the quantity.
  const Band& band(const std::string& quantity) const;
  const ColorCoding& coding(const std::string& quantity) const;
  /// Among the points of the band of the quantity, whose times are those of valueBand() as well.
  const NearestPoint& nearest(const std::string& quantity) const;

 private:
  const Numbers& values(const std::string& quantity) const;
  void countRows(const std::vector<DaySpan>& unmeasured, const std::string& noun);

  std::string name_;
  /// Without the times, which are in rowTimes_.
  Table table_;
  std::vector<std::string> warnings_;
  std::size_t time_ = 0;
  Numbers rowTimes_;
  NearestPoint nearestRow_, nearestCount_;
  TimeSpan span_;
  std::vector<std::string> quantities_;
  std::optional<Band> counts_;
  /// Of what follows, which is made when it is first asked for.
  mutable std::mutex mutex_;
  mutable std::map<std::string, Numbers> values_;
  mutable std::map<std::string, Band> valueBands_;
  mutable std::map<std::string, Band> bands_;
  mutable std::map<std::string, ColorCoding> codings_;
};

}  // namespace explorer
