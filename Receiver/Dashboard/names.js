// Words for the codes that reports carry.

import {asText, visible} from './text.js';

const orientations = {0: 'Unknown', 1: 'Portrait', 2: 'Upside down', 3: 'Landscape left', 4: 'Landscape right', 5: 'Face up', 6: 'Face down'};
const sessionStates = {0: 'Foreground', 1: 'Inactive', 2: 'Background'};
const sessionChanges = {0: 'came to the foreground', 1: 'became inactive', 2: 'went to the background'};
const batteryStates = {1: 'on battery', 2: 'charging', 3: 'full'};
const networks = {wifi: 'Wi-Fi', offline: 'Offline', '': 'Unknown'};
const permissions = {calendar: 'Calendar', camera: 'Camera', contacts: 'Contacts', location: 'Location', medialibrary: 'Media library',
    microphone: 'Microphone', photolibrary: 'Photo library'};
const permissionStates = {on: 'allowed', only_while_using_the_app: 'while using the app'};

const lookUp = (names) => (code) => {
    const text = asText(code);
    return Object.hasOwn(names, text) ? names[text] : visible(text, 40);
};

export const orientationName = lookUp(orientations);
export const sessionName = lookUp(sessionStates);
export const sessionChange = lookUp(sessionChanges);
export const permissionName = lookUp(permissions);
export const permissionState = lookUp(permissionStates);
const networkType = lookUp(networks);
export const batteryState = (code) => batteryStates[asText(code)] ?? '';

export function networkName(type, name) {
    return name ? `${networkType(type)} “${visible(name, 60)}”` : networkType(type);
}

/// "en_GB" as "British English (en_GB)"
export function localeName(identifier) {
    return described(identifier, () =>
        new Intl.DisplayNames(undefined, {type: 'language'}).of(identifier.split(/[.@]/)[0].replaceAll('_', '-')));
}

/// "Europe/Berlin" with what its clocks differ from UTC at that time.
export function zoneName(identifier, time) {
    return described(identifier, () => new Intl.DateTimeFormat('en', {timeZone: identifier, timeZoneName: 'longOffset'})
        .formatToParts(time).find(({type}) => type === 'timeZoneName').value.replace('GMT', 'UTC'), true);
}

function described(identifier, describe, after = false) {
    const shown = visible(identifier, 60);
    try {
        return after ? `${shown} (${describe()})` : `${describe()} (${shown})`;
    } catch {
        return shown; // not one that is known
    }
}
