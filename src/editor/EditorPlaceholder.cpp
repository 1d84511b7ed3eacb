// Keeps the library non-empty until its first class lands.
