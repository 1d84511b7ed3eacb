<?php
// BBCode filter: UTF-8 BBCode on standard input, a clean XHTML body fragment on standard
// output.

error_reporting(E_ALL & ~E_DEPRECATED);
ini_set('display_errors', 'stderr');
ini_set('log_errors', '0');

require_once __DIR__ . '/lib/bbcode.php';

$source = stream_get_contents(STDIN);
echo vellox_bbcode_convert($source === false ? '' : $source);
