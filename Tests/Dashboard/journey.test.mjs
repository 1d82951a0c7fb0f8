// From the first start of a receiver to a report that was read and deleted.

import assert from 'node:assert/strict';
import {readFile} from 'node:fs/promises';
import {join} from 'node:path';
import {after, before, test} from 'node:test';
import {checkPage, logIn, openBrowser, openPage} from './browser.mjs';
import {bundleId, installHost, isBuilt, runHost} from './host.mjs';
import {password, picture, startReceiver} from './receiver.mjs';

const description = 'The total is wrong';
let browser;
let receiver;
let page;

before(async () => {
    [browser, receiver] = await Promise.all([openBrowser(), startReceiver()]);
    page = await openPage(browser, receiver);
});
after(async () => {
    await browser?.close();
    await receiver?.stop();
});

let isBroken = false;

/// Each step begins where the one before it ended.
function step(name, run) {
    test(name, async (context) => {
        if (isBroken)
            return context.skip('a step before it failed');
        isBroken = true;
        await run(context);
        isBroken = false;
    });
}

const row = (text) => page.locator('.row', {hasText: text});

step('a wrong password is refused, the right one shows what to do first', async () => {
    await logIn(page, 'wrong');
    await page.getByText('That is not the password.').waitFor();
    const forget = (route) => route.request().method() === 'GET' ? route.fulfill({status: 401, json: {}}) : route.continue();
    await page.route('**/api/session', forget);
    await logIn(page);
    await page.getByText('the browser did not keep its cookie').waitFor();
    await page.unroute('**/api/session', forget);
    await logIn(page);
    await page.getByRole('heading', {name: 'No reports yet'}).waitFor();
});

step('a client is made in the dashboard, and the library reports with it while the list is open', async () => {
    await page.getByRole('link', {name: 'Create a client'}).click();
    await page.getByRole('button', {name: 'New client'}).click();
    await page.getByLabel('Id', {exact: true}).fill('tests');
    await page.keyboard.press('Enter');
    await page.getByText('This id is taken, perhaps by a revoked client').waitFor();
    await page.locator('#client-id:focus[aria-invalid][aria-describedby="dialog-problem"]').fill('beta');
    await page.getByLabel(/Bundle ids/).fill('org.example.mistake');
    const away = (route) => route.request().method() === 'GET' ? route.abort('internetdisconnected') : route.continue();
    await page.route('**/api/clients', away);
    await page.getByRole('button', {name: 'Create', exact: true}).click();
    const secret = await page.locator('.credential', {hasText: 'APIClientSecret'}).locator('code').textContent();
    await page.evaluate(() => { navigator.clipboard.writeText = () => Promise.reject(new Error('as over plain HTTP')); });
    await page.locator('.credential', {hasText: 'APIClientSecret'}).getByRole('button').click();
    await page.locator('.credential button:focus', {hasText: 'Copied'}).waitFor();
    await page.keyboard.press('Escape');
    await page.mouse.click(5, 5);
    await page.unroute('**/api/clients', away);
    await page.getByRole('button', {name: 'I have it'}).click();
    await page.getByRole('row', {name: /beta/}).getByRole('button', {name: 'Bundle ids'}).click();
    const bundles = page.getByRole('dialog', {name: 'What may beta send for?'}).getByLabel(/Bundle ids/);
    const {x, y} = await bundles.boundingBox();
    await page.mouse.move(x + 5, y + 5);
    await page.mouse.down();
    await page.mouse.move(5, 5);
    await page.mouse.up();
    assert.equal(await bundles.inputValue(), 'org.example.mistake');
    await bundles.fill(bundleId);
    await page.getByRole('button', {name: 'Save'}).click();
    await page.getByRole('row', {name: /beta/}).getByText(bundleId).waitFor();
    assert.doesNotMatch(await page.content(), new RegExp(secret));

    await page.getByRole('link', {name: 'Inbox'}).click();
    await page.getByRole('heading', {name: 'No reports yet'}).waitFor();
    await page.evaluate(() => { window.wasNotReloaded = true; });
    await report({id: 'beta', secret});
    await row(description).waitFor();
    assert.ok(await page.evaluate(() => window.wasNotReloaded));
    await page.getByText('1 report', {exact: true}).waitFor();
});

async function report(credentials) {
    if (!isBuilt)
        return receiver.application.send({description, blackbox: {cpu_usage_history: [{value: '12.5', time_occurred: '2026-01-02T03:04:05.678Z'}]}},
            {screenshot: picture, bundleId});
    const folder = join(receiver.folder, 'host');
    const host = await installHost(folder, receiver.url, credentials);
    await runHost(host, folder, 'core', 'quit-when', 'WXLAPI - Success creating application', 'start');
    await runHost(host, folder, 'widgets', 'quit-when', 'WXLAPI - Success uploading report', 'start', 'screenshot', description);
}

step('the report shows its screenshot, its black box and its facts', async () => {
    await page.locator('.row .thumb img').evaluate((image) => image.decode());
    await row(description).click();
    await page.getByRole('heading', {name: description, level: 1}).waitFor();
    await page.locator('.shot img').evaluate((image) => image.decode());
    await page.waitForFunction(() => {
        const canvas = document.querySelector('canvas.is-cpu');
        return canvas?.getContext('2d').getImageData(0, 0, canvas.width, canvas.height).data.some((byte) => byte !== 0);
    });
    await page.locator('.fact', {hasText: 'Bundle id'}).getByText(bundleId).waitFor();

    await page.keyboard.press('z');
    await page.getByRole('button', {name: 'Actual size'}).click();
    await page.locator('.viewer-scale', {hasText: '100 %'}).waitFor();
    await page.keyboard.press('+');
    await page.locator('.viewer-scale', {hasText: '125 %'}).waitFor();
    await page.keyboard.press('Escape');
});

step('everything is saved as one archive', async () => {
    const [download] = await Promise.all([page.waitForEvent('download'), page.keyboard.press('s')]);
    const bytes = await readFile(await download.path());
    assert.equal(bytes.subarray(0, 2).toString(), 'PK');
    assert.ok(bytes.includes('report.json') && bytes.includes('screenshot'));
});

step('a search is kept by the address, through a reload and back', async () => {
    await page.keyboard.press('Escape');
    await row(description).waitFor();
    await page.keyboard.press('/');
    await page.keyboard.type('no such words');
    await page.getByRole('heading', {name: 'No report matches'}).waitFor();
    await page.keyboard.press('Escape');
    await page.getByLabel('Search the reports').fill('TOTAL is');
    await page.waitForURL(/search=TOTAL/);
    await page.reload();
    await row(description).click();
    await page.getByRole('heading', {name: description, level: 1}).waitFor();
    await page.goBack();
    await row(description).waitFor();
    assert.equal(await page.getByLabel('Search the reports').inputValue(), 'TOTAL is');
});

step('an archived application is refused until it is not', async () => {
    await page.getByRole('link', {name: 'Applications'}).click();
    const application = page.getByRole('row', {name: new RegExp(bundleId)});
    await application.getByRole('button', {name: 'Archive'}).click();
    await page.getByRole('dialog', {name: `Archive ${bundleId}?`}).getByRole('button', {name: 'Archive'}).click();
    await application.getByText('archived').waitFor();
    assert.equal((await receiver.application.send({description: 'too late'}, {bundleId})).status, 403);
    await application.locator('button:focus', {hasText: 'Unarchive'}).waitFor();
    await page.keyboard.press('Enter');
    await application.getByText('archived').waitFor({state: 'detached'});
    assert.equal((await receiver.application.send({description: 'in time'}, {bundleId})).status, 200);
});

step('a deleted report is gone with its files, and the way out closes the door', async () => {
    await page.getByRole('link', {name: 'Inbox'}).click();
    await row(description).click();
    const screenshot = await page.locator('.shot img').getAttribute('src');
    await page.getByRole('button', {name: 'Delete'}).click();
    await page.locator('dialog').getByRole('button', {name: 'Delete'}).click();
    await page.getByRole('link', {name: 'Inbox'}).first().click();
    await row('in time').waitFor();
    assert.equal(await row(description).count(), 0);
    assert.equal((await page.request.get(new URL(screenshot, receiver.dashboard).href)).status(), 404);

    await page.getByRole('link', {name: 'Account'}).click();
    for (const name of ['Current password', 'New password, at least 10 characters', 'New password again'])
        await page.getByLabel(name).fill(password);
    let changes = 0;
    page.on('request', (request) => { changes += request.url().endsWith('/api/password') ? 1 : 0; });
    await page.getByRole('button', {name: 'Change the password'}).dblclick();
    await page.getByText('The password is changed.').waitFor();
    assert.equal(changes, 1);
    await page.getByRole('button', {name: 'Log out'}).click();
    await page.getByLabel('Password', {exact: true}).waitFor();
    assert.equal((await page.request.get(receiver.dashboard + 'api/reports')).status(), 401);
    await checkPage(page);
});
