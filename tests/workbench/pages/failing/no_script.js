'use strict';

var there = ;
