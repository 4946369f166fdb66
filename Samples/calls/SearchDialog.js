// Family: Analog
// Types: rrio
// Which part the designer means, found by any of its names, out of the whole library.
SearchDialog(include("../data/parts_catalogue.js"), "1");
