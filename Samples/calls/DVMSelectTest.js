// Family: Analog
// What the verification of a converter runs tonight.
DVMSelectTest(include("../data/converter_tests.js"), ["Verify Buck Converter", "Test"]);
