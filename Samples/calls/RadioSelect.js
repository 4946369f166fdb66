// Family: Generic
// How a simulation run is to integrate, and whether that is to be asked again.
RadioSelect(
  2,
  ["Trapezoidal", "Gear, order 2", "Backward Euler"],
  ["Integration Method", "Integrate the transient run by:", "Use for all later runs"]
);
