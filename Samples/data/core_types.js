// Ferrite cores for transformers and chokes. Each line is one core: name; effective area in square
// metres; effective length in metres; effective permeability; material.
//
// The shapes and sizes are those of IEC 62317 (RM: part 4, ETD: part 6, E: part 8, PQ: part 13); area and
// length are what IEC 60205 computes for them, a pair of halves. The permeability of a pair without a gap
// is that of 2300 with the 10 µm between the halves that ground faces leave; of a pair with an inductance
// factor AL, what gives that inductance for one turn squared. The ring is its sizes, three quarters filled
// with ribbon of a grade of 30000.
[
  "E 20/10/6;32.1u;46.3m;1537;MnZn power ferrite, 100 °C",
  "E 25/13/7;52.5u;57.5m;1643;MnZn power ferrite, 100 °C",
  "E 42/21/15;178u;97m;1859;MnZn power ferrite, 100 °C",
  "E 42/21/15, AL 250 nH;178u;97m;108;MnZn power ferrite, 100 °C",
  "E 42/21/15, AL 630 nH;178u;97m;273;MnZn power ferrite, 100 °C",
  "E 55/28/21;354u;124m;1940;MnZn power ferrite, 100 °C",
  "E 65/32/27;535u;147m;1989;MnZn power ferrite, 100 °C",
  "ETD 29;76u;72m;1743;MnZn power ferrite, 100 °C",
  "ETD 34;97.1u;78.6m;1779;MnZn power ferrite, 100 °C",
  "ETD 34, AL 160 nH;97.1u;78.6m;103;MnZn power ferrite, 100 °C",
  "ETD 34, AL 250 nH;97.1u;78.6m;161;MnZn power ferrite, 100 °C",
  "ETD 39;125u;92.2m;1841;MnZn power ferrite, 100 °C",
  "ETD 39, AL 250 nH;125u;92.2m;147;MnZn power ferrite, 100 °C",
  "ETD 44;173u;103m;1880;MnZn power ferrite, 100 °C",
  "ETD 49;211u;114m;1914;MnZn power ferrite, 100 °C",
  "ETD 49, AL 400 nH;211u;114m;172;MnZn power ferrite, 100 °C",
  "RM 6;36.6u;28.6m;1275;MnZn power ferrite, 100 °C",
  "RM 8;64u;38m;1433;MnZn power ferrite, 100 °C",
  "RM 8, AL 160 nH;64u;38m;75.6;MnZn power ferrite, 100 °C",
  "RM 8, AL 250 nH;64u;38m;118;MnZn power ferrite, 100 °C",
  "RM 10;98u;44m;1510;MnZn power ferrite, 100 °C",
  "RM 10, AL 250 nH;98u;44m;89.3;MnZn power ferrite, 100 °C",
  "RM 10, AL 400 nH;98u;44m;143;MnZn power ferrite, 100 °C",
  "RM 12;146u;57m;1639;MnZn power ferrite, 100 °C",
  "RM 14;200u;70m;1731;MnZn power ferrite, 100 °C",
  "PQ 20/20;62.6u;45.7m;1530;MnZn power ferrite, 100 °C",
  "PQ 26/25;120u;54.3m;1616;MnZn power ferrite, 100 °C",
  "PQ 26/25, AL 250 nH;120u;54.3m;90;MnZn power ferrite, 100 °C",
  "PQ 32/30;167u;74.7m;1759;MnZn power ferrite, 100 °C",
  "PQ 32/30, AL 315 nH;167u;74.7m;112;MnZn power ferrite, 100 °C",
  "PQ 35/35;190u;86.1m;1815;MnZn power ferrite, 100 °C",
  "Ring 40/25/15;84.4u;102m;30k;Nanocrystalline iron ribbon",
]
