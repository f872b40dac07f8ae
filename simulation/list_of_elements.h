// ListOfBuildingElements, "List of surfaces facing outdoors": the surfaces of
// the building as the calculation modules see them. DAT1.DAT is written
// again and read back, so the list shows exactly what a run delivers: an
// element with a hole is two surfaces, each with its sequence number.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/controls.h"

namespace zelmo {

struct Session;

// One surface of DAT1.DAT, its fields as the file writes them, trimmed.
struct Dat1Surface {
  int sequence = 0;  // counted over every surface of the file, from 1
  int element = 0;   // the element it belongs to, from 1
  bool hole = false;
  std::string name, shape, zenith, azimuth, x, y, z, front, back;
  // The construction: a wall number, "0" for a shading screen, or "W" and
  // the window type.
  std::string construction;
};

struct Dat1Surfaces {
  int total = 0;                      // every surface read
  std::vector<Dat1Surface> outdoors;  // those with Outdoor or Ground on a side
};

// Reads DAT1.DAT back through the modules' own reader, so the list counts
// the surfaces as the modules do. With `decimal_comma` every "." of a number
// shown becomes ",", as the system's number format shows numbers. A damaged
// file throws FileError naming it and the line.
Dat1Surfaces GetDat1(const std::string& path, bool decimal_comma);

// The choices of Option1.
enum class Orientation { kVertical = 0, kHorizontal = 1, kTilted = 2 };
// Whether a surface of this zenith (in degrees) is of the orientation.
bool HasOrientation(double zenith, Orientation orientation);

// Sorts `keys` ascending from `first` to `last` (indexes into both tables),
// `carried` moving with its key. The pivot is picked at random through
// `random`, which gives a number from 0 up to 1.
void Quicksort(std::vector<int>& keys, std::vector<int>& carried, int first, int last,
               const std::function<double()>& random);

class ListOfBuildingElements : public Form {
 public:
  explicit ListOfBuildingElements(Session& session);
  void Load() override;

  // Fills the grid with the surfaces facing outdoors of the chosen
  // orientation, in the order of their sequence numbers.
  void SelectFromDat1(Orientation orientation);
  void Help();

  const Dat1Surfaces& surfaces() const { return surfaces_; }

  Label Label1{this, "Label1"};
  Label TN{this, "TN"};
  Label Label2{this, "Label2"};
  Label NS{this, "NS"};
  OptionButton Option1[3]{{this, "Option1(0)"}, {this, "Option1(1)"}, {this, "Option1(2)"}};
  Grid Grid1{this, "Grid1"};
  Button OK{this, "OK"};
  Button Command1{this, "Command1"};

 private:
  Session& session_;
  Dat1Surfaces surfaces_;
};

}  // namespace zelmo
