<?php
// Smark filter: UTF-8 Smark on standard input, an HTML body fragment on standard output.
// Smark is Markdown with smart typography (curly quotes, dashes, ellipses), bare addresses
// turned into links, and a line holding only an image path shown as that image.

error_reporting(E_ALL & ~E_DEPRECATED);
ini_set('display_errors', 'stderr');
ini_set('log_errors', '0');

require_once __DIR__ . '/lib/commonmark.php';

$source = stream_get_contents(STDIN);
echo vellox_commonmark_convert($source === false ? '' : $source, true);
