// What cores are made of. Each line is one material: name; permeability, a round figure at
// 25 °C (initial; of the steel the greatest); flux density at which it saturates, in tesla.
//
// Round figures for each kind of material, as textbooks of magnetic materials have them: soft ferrites,
// whose saturation falls with temperature (IEC 61332 has their classes), silicon steel (IEC 60404-8-7), and
// ribbon on a base of iron.
[
  "MnZn power ferrite, 25 °C;2300;0.49",
  "MnZn power ferrite, 100 °C;2300;0.39",
  "MnZn power ferrite for 1 MHz, 100 °C;900;0.36",
  "MnZn ferrite of high permeability, 25 °C;10000;0.38",
  "NiZn ferrite, 25 °C;800;0.3",
  "Silicon steel, grain oriented;40000;2.0",
  "Amorphous iron ribbon;10000;1.56",
  "Nanocrystalline iron ribbon;80000;1.2",
]
