// How the digital pins of common logic families meet analog signals. Each line is one interface:
// technology; description; name of its model; kind of model; supply voltage; conductances of an
// output's pull-up and pull-down. An output that leaves both conductances empty takes its resistance
// from the device.
[
  "TTL;Standard input;adc_ttl;adc_bridge;5",
  "TTL;Schmitt input;adc_ttl_st;adc_schmitt;5",
  "TTL;Standard output;dac_ttl;dac_bridge;5;2.5m;33m",
  "TTL;Open collector output;dac_ttl_oc;dac_open;5",
  "CMOS 5 V;Standard input;adc_hc;adc_bridge;5",
  "CMOS 5 V;Schmitt input;adc_hc_st;adc_schmitt;5",
  "CMOS 5 V;TTL-level input;adc_hct;adc_bridge;5",
  "CMOS 5 V;Standard output;dac_hc;dac_bridge;5;;",
  "CMOS 5 V;Open drain output;dac_hc_od;dac_open;5",
  "CMOS 3.3 V;Standard input;adc_lvc;adc_bridge;3.3",
  "CMOS 3.3 V;Schmitt input;adc_lvc_st;adc_schmitt;3.3",
  "CMOS 3.3 V;Standard output;dac_lvc;dac_bridge;3.3;;",
  "CMOS 3.3 V;Bus output, 24 mA;dac_lvc_24;dac_bridge;3.3;50m;60m",
  "LVDS;Standard input;adc_lvds;adc_bridge;2.5",
  "LVDS;Terminated input, 100 ohms;adc_lvds_t;adc_bridge;2.5",
  "LVDS;Standard output;dac_lvds;dac_bridge;2.5;10m;10m",
]
