<?php
// The same page as a file: what is left when rendering costs nothing.
readfile($_SERVER["FIXED_PAGE"]);
