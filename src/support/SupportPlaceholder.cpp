// Keeps the support library non-empty until its first class lands.
