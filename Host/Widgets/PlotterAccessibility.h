#pragma once

class Plotter;

/// What assistive technology sees of a plotter: a chart whose value is the read-out.
namespace PlotterAccessibility {

/// Makes plotters known to the accessibility layer, once in a process.
void install();

/// Tells a listening assistive technology, if there is one.
void readOutChanged(Plotter* plotter);

} // namespace PlotterAccessibility
