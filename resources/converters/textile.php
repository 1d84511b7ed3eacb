<?php
// Textile filter: UTF-8 Textile on standard input, an HTML body fragment on standard output.

error_reporting(E_ALL & ~E_DEPRECATED);
ini_set('display_errors', 'stderr');
ini_set('log_errors', '0');

require_once __DIR__ . '/lib/pandoc.php';
exit(vellox_pandoc_filter('textile'));
