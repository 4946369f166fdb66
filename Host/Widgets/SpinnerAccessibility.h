#pragma once

class Spinner;

/// What assistive technology sees of a spinner: a spin button with an editable text.
namespace SpinnerAccessibility {

/// Makes spinners known to the accessibility layer, once in a process.
void install();

/// Tells a listening assistive technology, if there is one.
void valueChanged(Spinner* spinner);

} // namespace SpinnerAccessibility
