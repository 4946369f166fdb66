// Family: Generic
// The address of a report, as a link in another document wants it.
// Opens: no dialog
GetURLFromLocalPath("/home/lab/reports/Flyback converter 12V.html");
