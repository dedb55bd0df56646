'use strict';

// Addresses of four numbers, as the pages of the network check them while the user types.
var NetworkAddress = {
    // The numbers, null for a text that is no address.
    parts: function (text) {
        var parts = text.split('.');
        var isAddress = parts.length === 4 && parts.every(function (part) {
            return /^[0-9]{1,3}$/.test(part) && Number(part) <= 255;
        });
        return isAddress ? parts.map(Number) : null;
    },

    // Whether ones stand in front of zeros, and both are there.
    isMask: function (text) {
        var parts = NetworkAddress.parts(text);
        return parts !== null && /^1+0{2,}$/.test(parts.map(function (part) {
            return (256 + part).toString(2).slice(1);
        }).join(''));
    }
};
