<?php
// HTML filter: entries written in HTML are shown as they are.

stream_copy_to_stream(STDIN, STDOUT);
